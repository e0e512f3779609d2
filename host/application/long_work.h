// Work that may take long, for whoever waits: how far it is, and whether he wants it to end. Without windows nobody
// waits and nothing is shown.
//
//   for (…) {
//     work->progress(done, all);
//     if (work->cancelled()) break;
//   }
#pragma once

namespace quor {

class LongWork {
 public:
  LongWork() = default;
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;
  virtual ~LongWork() = default;

  // `all` of 0: how much there is to do is not known.
  virtual void progress(int /*done*/, int /*all*/) {}
  // Lets what waits happen first; the user can do nothing else than cancel.
  virtual bool cancelled() { return false; }
};

}  // namespace quor
