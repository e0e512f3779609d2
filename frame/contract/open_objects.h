// The registry of open objects: which stored object is open in which editor.
//
// Implemented by  the host, which enters an editor when it shows it and takes it out when it closes it.
// Called by       the plug-in's editors, when their object is written or gives way to another.
// States          an object is open in one editor at most.
// Units           objects are keys: an eight-character type code and the record's decimal ID.
#pragma once

#include <string>

namespace quor {

class Form;
class QuorObjectUIO;

class OpenObjectRegistry {
 public:
  OpenObjectRegistry() = default;
  OpenObjectRegistry(const OpenObjectRegistry&) = delete;
  OpenObjectRegistry& operator=(const OpenObjectRegistry&) = delete;
  virtual ~OpenObjectRegistry();

  // The object was stored: whoever lists it, or has it on the desk top, shows what it is now.
  virtual void written(QuorObjectUIO& object) = 0;
  // Whether the editor of the object may turn to another one; false is a refusal.
  virtual bool may_leave(const std::string& object) = 0;
  // The editor no longer shows `object`, it has turned to a new one.
  virtual void left(const std::string& object, Form& editor) = 0;
};

}  // namespace quor
