// One command of a form's list at a time. While a command shows its question or its dialog, the host may pass on what
// the user did meanwhile, to rows that the command is about to change: such a command is dropped.
#pragma once

namespace velmora {

class CommandGate {
 public:
  CommandGate() = default;
  CommandGate(const CommandGate&) = delete;
  CommandGate& operator=(const CommandGate&) = delete;

  bool is_open() const { return !running_; }

  // Runs the command, or drops it while another one runs. What the command throws passes on.
  template <typename Command>
  void run(const Command& command) {
    if (running_) return;
    const Running running(running_);
    command();
  }

 private:
  class Running {
   public:
    explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() { flag_ = false; }

   private:
    bool& flag_;
  };

  bool running_ = false;
};

}  // namespace velmora
