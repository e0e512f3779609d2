// The host application with windows: what the plug-in asks of a person is asked in dialogs.
//
// Made after the DesktopProcess. The main window stands on top of it and hears of what concerns it.
#pragma once

#include <functional>
#include <memory>

#include "host/application/application.h"
#include "host/desktop/edge/edge.h"

namespace quor {

class DesktopApplication : public Application {
 public:
  // Company and edge outlive it; the edge refreshes the company before each act from now on.
  DesktopApplication(Company& company, ApplicationOptions options, Edge& edge);
  ~DesktopApplication() override;

  Edge& edge() { return edge_; }

  // Told after an object was put on the desk top, with the editor that came along (null: none).
  using DeskTopListener = std::function<void(const std::string& object, const std::shared_ptr<Form>& editor)>;
  void on_desk_top(DeskTopListener listener) { desk_top_listener_ = std::move(listener); }

  // Told which object somebody wants opened.
  void on_open(std::function<void(const std::string& key)> listener) { open_listener_ = std::move(listener); }

  // Asks when the form would lose what was typed; false when the user wants to keep it open.
  bool may_close(const Form& form);

  BoxAnswer MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) override;
  // In a dialog above the window in which the user acts.
  void show_modal(Form& form) override;
  void run_pending_events() override;
  [[nodiscard]] std::unique_ptr<LongWork> begin_work(const std::string& what) override;
  void place_on_desk_top(const std::string& object, std::shared_ptr<Form> editor) override;
  void open_object(const std::string& key) override {
    if (open_listener_) open_listener_(key);
  }

 protected:
  std::string choose_object(Recordset& list, const std::string& current, const std::string& title) override;
  void busy_changed(bool busy) override;

 private:
  void preview_report();

  Edge& edge_;
  DeskTopListener desk_top_listener_;
  std::function<void(const std::string& key)> open_listener_;
};

}  // namespace quor
