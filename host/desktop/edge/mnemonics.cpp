#include "host/desktop/edge/mnemonics.h"

#include <QSet>

namespace quor {

namespace {

bool on_every_keyboard(QChar letter) { return letter.unicode() < 128; }
bool starts_word(const QString& caption, qsizetype at) { return at == 0 || !caption[at - 1].isLetterOrNumber(); }

// The best free letter's place; -1 when none is free.
qsizetype best_letter(const QString& caption, const QSet<QChar>& taken) {
  const auto rank = [&](qsizetype at) {
    return (on_every_keyboard(caption[at]) ? 2 : 0) + (starts_word(caption, at) ? 1 : 0);
  };
  qsizetype best = -1;
  for (qsizetype at = 0; at < caption.size(); ++at) {
    if (!caption[at].isLetter() || taken.contains(caption[at].toLower())) continue;
    if (best < 0 || rank(at) > rank(best)) best = at;
  }
  return best;
}

}  // namespace

std::vector<QString> with_mnemonics(const std::vector<QString>& captions) {
  QSet<QChar> taken;
  std::vector<QString> marked;
  for (const QString& caption : captions) {
    const qsizetype at = best_letter(caption, taken);
    if (at < 0) {
      marked.push_back(without_mnemonic(caption));
      continue;
    }
    taken.insert(caption[at].toLower());
    marked.push_back(without_mnemonic(caption.left(at)) + '&' + without_mnemonic(caption.mid(at)));
  }
  return marked;
}

QString without_mnemonic(const QString& caption) { return QString(caption).replace('&', "&&"); }

}  // namespace quor
