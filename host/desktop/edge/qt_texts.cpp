#include "host/desktop/edge/qt_texts.h"

#include <QHash>
#include <QLibraryInfo>
#include <cstring>

namespace quor {

namespace {

// What the installed translation lacks, or says in other words than our windows. Whatever the class that says it: Qt's
// words mean the same everywhere.
const QHash<QByteArray, QString>& texts() {
  static const QHash<QByteArray, QString> texts = {
      // Buttons and menus
      {"OK", "Gerai"},
      {"&OK", "&Gerai"},
      {"Cancel", "Atšaukti"},
      {"&Cancel", "&Atšaukti"},
      {"Close", "Uždaryti"},
      {"&Close", "&Uždaryti"},
      {"&Yes", "&Taip"},
      {"&No", "&Ne"},
      {"Save", "Įrašyti"},
      {"&Save", "Į&rašyti"},
      {"Open", "Atverti"},
      {"Apply", "Taikyti"},
      {"Reset", "Atkurti"},
      {"Help", "Žinynas"},
      {"Retry", "Kartoti"},
      {"Abort", "Nutraukti"},
      {"Ignore", "Nepaisyti"},
      {"Discard", "Atmesti"},
      {"&Undo", "&Atšaukti veiksmą"},
      {"&Redo", "&Pakartoti veiksmą"},
      {"Cu&t", "&Iškirpti"},
      {"&Copy", "&Kopijuoti"},
      {"&Paste", "Į&klijuoti"},
      {"Delete", "Panaikinti"},
      {"Select All", "Pažymėti viską"},
      {"&Select All", "Pažymėti &viską"},
      // Files
      {"Sidebar", "Vietos"},
      {"List of places and bookmarks", "Vietų sąrašas"},
      {"Files", "Failai"},
      {"Show ", "Rodyti "},
      {"%1 File", "%1 failas"},
      {"Are you sure you want to delete '%1'?", "Ar tikrai norite panaikinti „%1“?"},
      // Printing
      {"Name:", "Pavadinimas:"},
      {"Properties", "Savybės"},
      {"Write PDF file", "Rašyti PDF failą"},
      {"Advanced", "Kita"},
      {"Page", "Lapas"},
      {"Pages", "Puslapius"},
      {"Page Set:", "Puslapių grupė:"},
      {"Page set:", "Puslapių grupė:"},
      {"All Pages", "Visi"},
      {"Odd Pages", "Nelyginiai"},
      {"Even Pages", "Lyginiai"},
      {"Double Sided Printing", "Dvipusis spausdinimas"},
      {"Off", "Ne"},
      {"Long side binding", "Per ilgąjį kraštą"},
      {"Short side binding", "Per trumpąjį kraštą"},
      {"Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. E.g: "
       "3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
       "Puslapiai arba jų ruožai, atskirti kableliais, pvz., 3,5-7,9."},
      {"Printer Properties", "Spausdintuvo savybės"},
      {"Job Options", "Užduotis"},
      {"Page Layout", "Išdėstymas"},
      {"Page order:", "Puslapių tvarka:"},
      {"Pages per sheet:", "Puslapių lape:"},
      {"Invalid Pages Definition", "Netinkami puslapiai"},
  };
  return texts;
}

}  // namespace

QtTexts::QtTexts() {
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  // Newer distributions may have the part of Qt's base apart; the older ones have one file.
  if (!installed_.load("qtbase_lt", folder)) static_cast<void>(installed_.load("qt_lt", folder));
}

QString QtTexts::translate(const char* context, const char* source, const char* disambiguation, int n) const {
  if (source == nullptr) return {};
  if (QString own = texts().value(source); !own.isNull()) return own;
  // The names of keys stay as they are printed on keyboards.
  if (context != nullptr && std::strcmp(context, "QShortcut") == 0) return {};
  return installed_.translate(context, source, disambiguation, n);
}

}  // namespace quor
