#include "host/application/registry.h"

#include <algorithm>

#include "frame/contract/quor_object_uio.h"
#include "platform/data/error.h"

namespace quor {

namespace {

class GroupHandle : public LayoutGroup {
 public:
  explicit GroupHandle(std::shared_ptr<RegisteredGroup> group) : group_(std::move(group)) {}
  void AddGroupObject(const std::string& object_type) override { group_->objects.push_back(object_type); }

 private:
  std::shared_ptr<RegisteredGroup> group_;
};

class LayoutHandle : public Layout {
 public:
  explicit LayoutHandle(std::shared_ptr<RegisteredLayout> layout) : layout_(std::move(layout)) {}
  std::shared_ptr<LayoutGroup> AddGroup(const std::string& object_type, const std::string& caption,
                                        const std::string& key) override {
    layout_->groups.push_back(std::make_shared<RegisteredGroup>(RegisteredGroup{object_type, caption, key, {}}));
    return std::make_shared<GroupHandle>(layout_->groups.back());
  }

 private:
  std::shared_ptr<RegisteredLayout> layout_;
};

// An .ico file begins with two zero bytes, the kind 1 and the number of its pictures.
bool is_icon(const Picture& picture) {
  return picture.bytes.size() > 6 && picture.bytes[0] == 0 && picture.bytes[1] == 0 && picture.bytes[2] == 1 &&
         picture.bytes[3] == 0;
}

void add_icon(std::map<std::string, Picture>& icons, const std::string& key, const Picture& picture) {
  if (!is_icon(picture)) {
    throw Error(ErrorKind::kTypeMismatch, "Paveikslas „" + picture.name + "“ nėra piktograma.");
  }
  icons.insert_or_assign(key, picture);
}

}  // namespace

std::shared_ptr<Layout> Registry::AddLayout(const std::string& layout_code, const std::string& /*layout_code_again*/,
                                            const std::string& caption, const std::string& key) {
  const auto same_key = [&](const auto& layout) { return layout->key == key; };
  if (std::any_of(registrations_.layouts.begin(), registrations_.layouts.end(), same_key)) {
    throw Error(ErrorKind::kAlreadyThere, "Skyrius „" + key + "“ jau užregistruotas.");
  }
  registrations_.layouts.push_back(
      std::make_shared<RegisteredLayout>(RegisteredLayout{layout_code, caption, key, {}, number_}));
  return std::make_shared<LayoutHandle>(registrations_.layouts.back());
}

void Registry::RegisterObjectType(const std::string& library, const std::string& object_type,
                                  const std::string& caption) {
  if (!is_type_code(object_type)) {
    throw Error(ErrorKind::kTypeMismatch, "„" + object_type + "“ nėra objekto tipo kodas.");
  }
  if (!registrations_.types.emplace(object_type, RegisteredType{library, caption, number_}).second) {
    throw Error(ErrorKind::kAlreadyThere, "Objekto tipas „" + object_type + "“ jau užregistruotas.");
  }
}

void Registry::AddLayoutIcon(const std::string& key, const Picture& picture) {
  add_icon(registrations_.layout_icons, key, picture);
}

void Registry::AddObjectIcon(const std::string& key, const Picture& picture) {
  add_icon(registrations_.object_icons, key, picture);
}

}  // namespace quor
