// Writes down a calculation at work, person by person: each call of the engine with what it answered, and under it each
// request with the row that was read. Nothing that passes is changed.
#pragma once

#include <memory>
#include <vector>

#include "host/insight/recorded_call.h"
#include "host/payroll/run_watch.h"

namespace quor {

// What has been written down so far.
struct Recording {
  struct Open {
    RecordedRequest request;
    Variant value;
  };
  std::vector<Open> open = {};  // requests of the call that is at work
  std::vector<RecordedCall> calls = {};
};

class RunRecorder : public RunWatch {
 public:
  std::shared_ptr<QuorObjectUIO> watch_calls(std::shared_ptr<QuorObjectUIO> engine) override;
  std::shared_ptr<QuorMainBO> watch_requests(std::shared_ptr<QuorMainBO> requests) override;
  void begin(const PersonInput& /*person*/) override { recording_->calls.clear(); }

  // The calls about the person so far, in order.
  const std::vector<RecordedCall>& calls() const { return recording_->calls; }

 private:
  // Shared with what stands at the seams, whoever lives longer.
  std::shared_ptr<Recording> recording_ = std::make_shared<Recording>();
};

}  // namespace quor
