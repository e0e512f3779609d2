#include "host/desktop/window/company_menu.h"

#include <QFileDialog>
#include <QFileInfo>

#include "host/company/company_copies.h"
#include "host/desktop/answers/message_box.h"
#include "host/desktop/edge/pointer.h"
#include "host/desktop/window/new_company_dialog.h"
#include "host/desktop/window/recent_companies.h"
#include "host/store/addresses.h"
#include "host/store/backup.h"

namespace quor {

CompanyMenu::CompanyMenu(DesktopApplication& application, std::string address, QWidget* window)
    : QObject(window), application_(application), address_(std::move(address)), window_(window) {}

void CompanyMenu::add_companies(QMenu& menu) {
  menu.addAction("Nau&ja įmonė…", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), this, [this] { make(); });
  menu.addAction("&Atverti…", QKeySequence(Qt::CTRL | Qt::Key_O), this, [this] { open(); });
  QMenu* const recent = menu.addMenu("&Paskutinės");
  connect(recent, &QMenu::aboutToShow, this, [this, recent] { show_recent(*recent); });
}

void CompanyMenu::add_copies(QMenu& menu) {
  menu.addAction("Atsarginė &kopija dabar…", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K), this,
                 [this] { back_up(); });
  menu.addAction("Atku&rti iš kopijos…", this, [this] { restore(); });
}

void CompanyMenu::act(const std::function<void()>& what) {
  if (application_.busy() == 0) application_.edge().act(window_, what);
}

// The act that has found the next company ends first: the window goes with it.
void CompanyMenu::leave(NextCompany next) {
  if (on_leave && (next.database || !next.restore_from.empty())) on_leave(std::move(next));
}

// ---- another company

void CompanyMenu::make() {
  NextCompany next;
  act([&] {
    NewCompanyDialog dialog(
        application_.edge(), [this](const std::string& what) { return application_.begin_work(what); }, window_);
    const FreePointer pointer;
    dialog.exec();
    next = dialog.take_company();
  });
  leave(std::move(next));
}

void CompanyMenu::open() {
  NextCompany next;
  act([&] {
    OpenCompanyDialog dialog(application_.edge(), window_);
    const FreePointer pointer;
    dialog.exec();
    next = dialog.take_company();
  });
  leave(std::move(next));
}

void CompanyMenu::show_recent(QMenu& menu) {
  menu.clear();
  const QString here =
      QString::fromStdString(shown_address(lasting_address(QString::fromStdString(address_)).toStdString()));
  int number = 0;
  for (const QString& address : recent_companies()) {
    if (address == here) continue;
    const QString caption = QString("&%1 %2").arg(++number).arg(QString(address).replace('&', "&&"));
    menu.addAction(caption, this, [this, address] { open_recent(address); });
  }
  if (number == 0) menu.addAction("Kitų dar nebuvo")->setEnabled(false);
}

void CompanyMenu::open_recent(const QString& address) {
  NextCompany next;
  act([&] {
    try {
      next = {.database = Database::open(address.toStdString()), .address = address.toStdString()};
    } catch (const StoreError& error) {
      if (error.fault() == StoreFault::kMissing && !is_server_address(address.toStdString())) forget_company(address);
      throw;
    }
  });
  leave(std::move(next));
}

// ---- copies

void CompanyMenu::back_up() {
  act([this] {
    refuse_server_copies(application_.company().database());
    QString place;
    {
      const FreePointer pointer;
      place =
          QFileDialog::getSaveFileName(window_, "Atsarginė kopija", QString::fromStdString(free_copy_name(address_)),
                                       "Įmonės (*.quor);;Visi failai (*)", nullptr, QFileDialog::DontConfirmOverwrite);
    }
    if (place.isEmpty()) return;
    back_up_company(application_.guard(), place.toStdString());
    if (on_done) on_done("Atsarginė kopija: " + place);
  });
}

void CompanyMenu::restore() {
  NextCompany next;
  act([&] {
    refuse_server_copies(application_.company().database());
    require_restore_right(application_.guard());
    const FreePointer pointer;
    const QString folder = QFileInfo(QString::fromStdString(address_)).absolutePath();
    const QString copy =
        QFileDialog::getOpenFileName(window_, "Atkurti iš kopijos", folder, "Įmonės (*.quor);;Visi failai (*)");
    if (copy.isEmpty()) return;
    const QString question =
        "Įmonė bus tokia, kokia yra kopijoje „" + copy + "“. Kas yra dabar, liks šalia atskirame faile. Ar atkurti?";
    if (show_message_box(window_, question, BoxIcon::kQuestion, BoxButtons::kYesNo, "Atkurti iš kopijos") ==
        BoxAnswer::kYes)
      next.restore_from = copy.toStdString();
  });
  leave(std::move(next));
}

}  // namespace quor
