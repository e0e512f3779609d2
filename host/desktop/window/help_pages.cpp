#include "host/desktop/window/help_pages.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>

#include "host/desktop/render/folded_text.h"

namespace quor {

namespace {

constexpr HelpTopic kTopics[] = {
    {"Pradžia", "first_page"},
    {"Darbuotojo kortelė", "employee"},
    {"Darbuotojo pareigybė", "employee"},
    {"Darbo pabaiga", "employee"},
    {"Darbuotojo tarnybos stažas", "service"},
    {"Darbo laikas", "worked_time"},
    {"Mėnuo", "month"},
    {"Mėnesiai", "month"},
    {"Diagrama", "month"},
    {"Uždaryti nepaisant", "month"},
    {"Atverti uždarytą mėnesį", "month"},
    {"Pareigybių kategorij", "categories"},
    {"Pareiginės algos koeficientas", "categories"},
    {"Valstybės tarnautojų nustatymai", "settings"},
    {"Priedas už tarnybos stažą", "settings"},
    {"Tarnybos stažas", "service"},
    {"Darbuotojo tarnybos stažas", "service"},
    {"Darbuotojo priedai", "charges"},
    {"Darbuotojo priedas", "charges"},
    {"Valstybės tarnautojų sąrašas", "salary_preview"},
    {"Valstybės tarnautojų priedai", "supplement_preview"},
    {"Darbo užmokesčio konstant", "constants"},
    {"Konstant", "constants"},
    {"Mėnesių normos", "norms"},
    {"Padalin", "codes"},
    {"Laiko koda", "codes"},
    {"Darbo užmokesčio koda", "codes"},
    {"CSV failo importas", "import"},
    {"Naudotojai ir teisės", "rights"},
    {"Naujas naudotojas", "rights"},
    {"Nauja įmonė", "company"},
    {"Atverti įmonę", "company"},
    {"Atkurti iš kopijos", "company"},
    {"Įstaigos pavadinimas", "company"},
    {"Taisyklių lentelės", "rules"},
};

}  // namespace

std::span<const HelpTopic> help_topics() { return kTopics; }

QString help_page_of(const QString& caption, const QString& otherwise) {
  const QString text = caption.trimmed();
  qsizetype longest = 0;
  QString page = otherwise;
  for (const HelpTopic& topic : kTopics) {
    const QString start = topic.caption;
    if (start.size() <= longest || !text.startsWith(start)) continue;
    longest = start.size();
    page = topic.page;
  }
  return page;
}

QString help_text(const QString& page) {
  for (const EmbeddedFile& each : help_pages()) {
    if (page.toStdString() != each.name) continue;
    QString text = QString::fromUtf8(each.text().data(), static_cast<qsizetype>(each.text().size()));
    return text.replace("%VERSION%", QCoreApplication::applicationVersion()).replace("%QT%", qVersion());
  }
  return {};
}

QString help_title(const QString& page) {
  const QString text = help_text(page);
  return text.section('\n', 0, 0).remove("# ");
}

QStringList pages_with(const QString& words) {
  const QStringList wanted = folded_words(words);
  QStringList found;
  for (const EmbeddedFile& each : help_pages()) {
    const QString page = QString::fromUtf8(each.name.data(), static_cast<qsizetype>(each.name.size()));
    const QStringList text = folded(help_text(page)).split(QRegularExpression("[^\\w]+"), Qt::SkipEmptyParts);
    const bool fits = std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
      return std::any_of(text.begin(), text.end(), [&](const QString& one) { return one.startsWith(word); });
    });
    if (fits) found << page;
  }
  return found;
}

}  // namespace quor
