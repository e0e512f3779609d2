#include "host/desktop/window/explanation_page.h"

namespace quor {

namespace {

QString escaped(const std::string& text) { return QString::fromStdString(text).toHtmlEscaped(); }

// With a mark, too: colour alone is no sign.
QString warning(const QString& text) { return "<p><font color=\"#c00000\"><b>!</b> " + text + "</font></p>"; }

// Who stored the row, and when; "" where nobody is known.
QString stored_by(const StoredSource& source) {
  if (source.stored_by.empty()) return {};
  return "įrašė " + escaped(source.stored_by) + (source.stored_at.empty() ? "" : " " + escaped(source.stored_at));
}

QString link(const ExplainedAmount& input, const QString& text) {
  if (!input.source || input.source->key.empty()) return text;
  return "<a href=\"" + escaped(input.source->key) + "\" title=\"" + stored_by(*input.source) + "\">" + text + "</a>";
}

QString words(const ExplainedAmount& amount) {
  QString text;
  for (const Phrase& phrase : amount.words) {
    const QString said = escaped(phrase.text);
    text += phrase.input ? link(amount.inputs[*phrase.input], said) : said;
  }
  return text;
}

bool is_mentioned(const ExplainedAmount& amount, std::size_t input) {
  for (const Phrase& phrase : amount.words) {
    if (phrase.input == input) return true;
  }
  return false;
}

// What the words leave to be told: reckoned inputs, inputs that are not mentioned, and who stored the others.
void add_inputs(const ExplainedAmount& amount, int depth, QString& page) {
  for (std::size_t i = 0; i < amount.inputs.size(); ++i) {
    const ExplainedAmount& input = amount.inputs[i];
    const QString by = input.source ? stored_by(*input.source) : QString();
    const bool more = !input.source || !by.isEmpty() || !is_mentioned(amount, i);
    if (more) {
      page += "<p style=\"margin:0 0 2px " + QString::number(14 * depth) + "px\">";
      page += link(input, escaped(input.what + " " + input.value)) + words(input);
      page += (by.isEmpty() ? "" : " <small>(" + by + ")</small>") + QString("</p>");
    }
    add_inputs(input, depth + 1, page);
  }
}

}  // namespace

QString explanation_page(const Explanation& explanation) {
  QString page = "<h3>" + escaped(explanation.person) + "</h3>";
  if (const std::string text = document_text(explanation); !text.empty()) page += "<p><i>" + escaped(text) + "</i></p>";
  if (!explanation.fault.empty()) page += warning("Neapskaičiuota: " + escaped(explanation.fault));
  for (const ExplainedAmount& amount : explanation.amounts) {
    const QString said = "<b>" + escaped(amount.what + " " + amount.value) + "</b>" + words(amount);
    page += amount.warns ? warning(said) : "<p>" + said + "</p>";
    add_inputs(amount, 1, page);
  }
  for (const std::string& refused : explanation.refused) page += warning("Nepaaiškinta: " + escaped(refused));
  return page;
}

QString refusal_page(const QString& text) { return warning(text.toHtmlEscaped()); }

}  // namespace quor
