#include "host/application/open_editors.h"

#include <algorithm>

#include "frame/contract/quor_object_uio.h"
#include "platform/data/error.h"

namespace quor {

namespace {

// An editor of a new object whose type is not told may be one of any type.
bool may_become(const std::string& new_object, const std::string& stored) {
  return !carries_object(new_object) && stored.starts_with(new_object);
}

}  // namespace

std::vector<OpenObjects::Entry>::iterator OpenObjects::entry_of(const Form& editor) {
  return std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.editor == &editor; });
}

void OpenObjects::enter(const std::string& object, Form& editor) {
  if (const Form* const other = find(object); other != nullptr && other != &editor) {
    throw Error(ErrorKind::kRefused, "Objektas „" + object + "“ jau atvertas kitame lange.");
  }
  leave(editor);
  entries_.push_back({object, &editor});
}

void OpenObjects::activate(Form& editor) {
  const auto entry = entry_of(editor);
  if (entry != entries_.end()) std::rotate(entry, entry + 1, entries_.end());
}

void OpenObjects::leave(Form& editor) {
  const auto entry = entry_of(editor);
  if (entry != entries_.end()) entries_.erase(entry);
}

Form* OpenObjects::find(const std::string& object) const {
  if (!carries_object(object)) return nullptr;
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.object == object; });
  return found == entries_.end() ? nullptr : found->editor;
}

std::string OpenObjects::object_of(const Form& editor) const {
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.editor == &editor; });
  return found == entries_.end() || !carries_object(found->object) ? "" : found->object;
}

void OpenObjects::written(QuorObjectUIO& object) { wrote(object.OIDR()); }

void OpenObjects::wrote(const std::string& key) {
  if (find(key) == nullptr) {
    const auto acting = std::find_if(entries_.rbegin(), entries_.rend(),
                                     [&](const Entry& entry) { return may_become(entry.object, key); });
    if (acting != entries_.rend()) acting->object = key;
  }
  const std::string told = key;  // the caller's may be gone with what a listener closes
  for (std::size_t i = 0; i < written_.size(); ++i) written_[i](told);
}

bool OpenObjects::may_leave(const std::string& object) { return !may_leave_ || may_leave_(object); }

void OpenObjects::left(const std::string& object, Form& editor) {
  const auto entry = entry_of(editor);
  if (entry != entries_.end()) entry->object = type_of_key(object);
  for (std::size_t i = 0; i < left_.size(); ++i) left_[i](object, editor);
}

}  // namespace quor
