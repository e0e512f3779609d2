// Who sees a calculation at work: what the engine is asked by method name, and what it asks for meanwhile.
#pragma once

#include <memory>

#include "frame/contract/quor_main_bo.h"
#include "frame/contract/quor_object_uio.h"

namespace quor {

struct PersonInput;

class RunWatch {
 public:
  virtual ~RunWatch() = default;
  // Stand between the calculation and its engine, and between the engine and the business object.
  virtual std::shared_ptr<QuorObjectUIO> watch_calls(std::shared_ptr<QuorObjectUIO> engine) = 0;
  virtual std::shared_ptr<QuorMainBO> watch_requests(std::shared_ptr<QuorMainBO> requests) = 0;
  // What is asked from now on is about this person.
  virtual void begin(const PersonInput& person) = 0;
};

}  // namespace quor
