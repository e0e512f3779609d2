// The host's registration object and what it hands out: the layout sections and groups of the host's explorer.
//
// Implemented by  the host.
// Called by       the plug-in's header object while it initialises.
// States          none; every call adds one thing.
// Units           codes and keys are ASCII, captions UTF-8.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "platform/data/variant.h"

namespace quor {

// A picture of type icon, as the bytes of an .ico file. The bytes live as long as the library that lends them.
struct Picture {
  std::string name;
  std::span<const unsigned char> bytes;
};

class LayoutGroup : public Object {
 public:
  ~LayoutGroup() override;
  virtual void AddGroupObject(const std::string& object_type) = 0;
};

class Layout : public Object {
 public:
  ~Layout() override;
  virtual std::shared_ptr<LayoutGroup> AddGroup(const std::string& object_type, const std::string& caption,
                                                const std::string& key) = 0;
};

// Each operation throws quor::Error when the host cannot take what it is given (a key used twice, an icon that is
// none).
class ObjectRegistry : public Object {
 public:
  ~ObjectRegistry() override;
  virtual std::shared_ptr<Layout> AddLayout(const std::string& layout_code, const std::string& layout_code_again,
                                            const std::string& caption, const std::string& key) = 0;
  virtual void RegisterObjectType(const std::string& library, const std::string& object_type,
                                  const std::string& caption) = 0;
  virtual void AddLayoutIcon(const std::string& key, const Picture& picture) = 0;
  virtual void AddObjectIcon(const std::string& key, const Picture& picture) = 0;
};

}  // namespace quor
