// Files that come out whole or not at all: written beside their place under a name of their own, brought to the disk,
// and only then renamed.
//
// A program that is killed leaves at most such a hidden file (".quor-" and six letters). Whoever next writes into the
// folder removes it; the one at work is told from one left behind by a lock, which goes with its program.
#pragma once

#include <string>
#include <string_view>

namespace quor {

// Puts a file with `bytes` at `path`. A new file is its owner's alone, one that stands there keeps its rights; a link
// is followed. What is no plain file (a terminal, a pipe, /dev/stdout) is written as it is. Throws StoreError
// that names the file and the reason, and leaves what stands there as it was; refuses as refuse_company_files does.
void write_whole_file(const std::string& path, std::string_view bytes);

// Throws StoreError when writing to `path` would destroy a company that is kept in a file: when that file, or
// the journal of one, stands there, under whatever name or link.
void refuse_company_files(const std::string& path);

// True when both name one file, or the same place where none stands yet.
bool same_place(const std::string& a, const std::string& b);
// True when `path` is the place of that company file or of a journal that the database keeps beside it.
bool is_place_of_company(const std::string& path, const std::string& company);

// The reason behind an errno, for people: "diske nebėra vietos".
std::string reason_of(int error);

// A file under a name of its own in the folder of `target`; removed unless it is given its place. Its members throw
// std::system_error.
class FileBeside {
 public:
  explicit FileBeside(const std::string& target);
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside();

  const std::string& path() const { return path_; }
  int descriptor() const { return descriptor_; }

  // Each brings the content to the disk first. `take_free_place` is false when something stands there already.
  void replace_target();
  bool take_free_place();

 private:
  void sync() const;

  std::string target_;
  std::string path_;
  int descriptor_ = -1;
};

}  // namespace quor
