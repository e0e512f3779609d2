// Which object is open in which editor. Whoever shows editors enters them and takes them out; the plug-in's editors
// report through the contract's `OpenObjectRegistry`.
//
//   editor     by
//   unknown    enter()
//   stored     enter() with a full key, or written() for the new object of the editor that the user acts in
//   new        enter() with a key that carries no object, or left()
//   unknown    leave()
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/contract/open_objects.h"

namespace quor {

class OpenObjects : public OpenObjectRegistry {
 public:
  // The editor shows that object from now on; of a new one the type code, or "". It is the one that the user acts in.
  // Throws Error (Refused) when another editor has the object.
  void enter(const std::string& object, Form& editor);
  // The user turns to that editor; nothing for an unknown one.
  void activate(Form& editor);
  // The editor is closed.
  void leave(Form& editor);

  // The editor in which the stored object is open; null when it is in none.
  Form* find(const std::string& object) const;
  // The key that the editor shows; "" for a new object and for an unknown editor.
  std::string object_of(const Form& editor) const;

  // Told of every object written, after its key is entered, and of every one that an editor has turned away from.
  void on_written(std::function<void(const std::string& key)> listener) { written_.push_back(std::move(listener)); }
  void on_left(std::function<void(const std::string&, Form&)> listener) { left_.push_back(std::move(listener)); }
  // What `may_leave` asks; without it an editor may always turn to another object.
  void on_may_leave(std::function<bool(const std::string&)> question) { may_leave_ = std::move(question); }

  void written(QuorObjectUIO& object) override;
  // The same for what is no data object: worked time, a month.
  void wrote(const std::string& key);
  bool may_leave(const std::string& object) override;
  void left(const std::string& object, Form& editor) override;

 private:
  struct Entry {
    std::string object;
    Form* editor;
  };
  std::vector<Entry>::iterator entry_of(const Form& editor);

  std::vector<Entry> entries_;  // the one that the user acts in is the last
  std::vector<std::function<void(const std::string&)>> written_;
  std::vector<std::function<void(const std::string&, Form&)>> left_;
  std::function<bool(const std::string&)> may_leave_;
};

}  // namespace quor
