#include "platform/toolkit/form.h"

namespace quor {

void Form::load() {
  if (loaded_) return;
  close_requested_ = false;
  opening();
  loaded_ = true;
}

void Form::unload() {
  if (!loaded_) return;
  loaded_ = false;
  closing();
}

void Form::close() {
  close_requested_ = true;
  // The listener may put another in its place, or none.
  if (const auto listener = close_listener_) listener();
}

}  // namespace quor
