#include "host/store/whole_file.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "host/store/addresses.h"
#include "host/store/store_error.h"

namespace quor {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHiddenName = ".quor-XXXXXX";
constexpr std::string_view kHiddenStart = ".quor-";
constexpr std::string_view kDatabaseStart{"SQLite format 3\0", 16};
constexpr const char* kCompanions[] = {"-journal", "-wal", "-shm"};

[[noreturn]] void fail(int error) { throw std::system_error(error, std::generic_category()); }

std::string in_quotes(const std::string& text) { return "„" + shown_address(text) + "“"; }

// Closed by `close`, which can fail, or at the end.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int number() const { return number_; }
  void close() {
    if (::close(std::exchange(number_, -1)) != 0) fail(errno);
  }

 private:
  int number_;
};

void write_all(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) fail(errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

// Where writing to a path ends: the last file behind its links, or a descriptor that is open already (/dev/stdout).
struct Target {
  fs::path path;
  std::optional<int> descriptor = std::nullopt;
};

std::optional<int> descriptor_named_by(const fs::path& path) {
  const std::string name = path.filename().string();
  std::error_code ignored;
  if (name.empty() || name.size() > 9 ||
      !std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c) != 0; }) ||
      fs::canonical(path.parent_path(), ignored) != fs::canonical("/proc/self/fd", ignored)) {
    return std::nullopt;
  }
  return std::stoi(name);
}

Target target_of(const std::string& path) {
  constexpr int kMostLinks = 40;
  Target target{.path = path};
  std::error_code ignored;
  for (int links = 0; fs::is_symlink(fs::symlink_status(target.path, ignored)); ++links) {
    if (links == kMostLinks) fail(ELOOP);
    target.descriptor = descriptor_named_by(target.path);
    if (target.descriptor) break;
    const fs::path next = fs::read_symlink(target.path);
    target.path = next.is_absolute() ? next : target.path.parent_path() / next;
  }
  return target;
}

bool holds_database(const std::string& path) {
  struct stat about {};
  if (::stat(path.c_str(), &about) != 0 || !S_ISREG(about.st_mode)) return false;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  std::string start(kDatabaseStart.size(), '\0');
  return ::pread(file.number(), start.data(), start.size(), 0) == static_cast<ssize_t>(start.size()) &&
         start == kDatabaseStart;
}

std::string folder_of(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  return folder.empty() ? "." : folder.string();
}

// Those of killed programs: ours, with a hidden name, and nobody holds the lock.
void remove_left_behind(const std::string& folder) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder, ignored)) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with(kHiddenStart) || name.size() != kHiddenName.size()) continue;
    const Descriptor file(::open(entry.path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat about {};
    if (file.number() < 0 || ::fstat(file.number(), &about) != 0) continue;
    if (!S_ISREG(about.st_mode) || about.st_uid != ::geteuid()) continue;
    if (::flock(file.number(), LOCK_EX | LOCK_NB) == 0) ::unlink(entry.path().c_str());
  }
}

// A rename stands after a loss of power only once its folder is on the disk too. Where folders cannot be synced there
// is nothing to be done.
void sync_folder(const std::string& folder) {
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.number() >= 0) ::fsync(opened.number());
}

void replace_plain_file(const std::string& path, std::string_view bytes) {
  struct stat old {};
  const bool stands = ::stat(path.c_str(), &old) == 0;
  // A new file beside it could take the place of one that may not be written.
  if (stands && ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) fail(errno);
  FileBeside file(path);
  write_all(file.descriptor(), bytes);
  if (stands) {
    // Only the system's administrator may give a file away; anybody else's new file is his own.
    if (::fchown(file.descriptor(), old.st_uid, old.st_gid) != 0) errno = 0;
    if (::fchmod(file.descriptor(), old.st_mode & 07777) != 0) fail(errno);
  }
  file.replace_target();
}

}  // namespace

std::string reason_of(int error) {
  switch (error) {
    case EACCES:
    case EPERM:
      return "nėra teisės";
    case EROFS:
      return "diskas tik skaitomas";
    case ENOSPC:
    case EDQUOT:
      return "diske nebėra vietos";
    case EFBIG:
      return "failas per didelis";
    case ENOENT:
    case ENOTDIR:
      return "nėra tokio aplanko";
    case EISDIR:
      return "tai aplankas";
    case ENAMETOOLONG:
      return "vardas per ilgas";
    case ELOOP:
      return "nuorodos eina ratu";
    case EBUSY:
    case ETXTBSY:
      return "failas užimtas";
    case EIO:
      return "disko klaida";
    case EBADF:
    case EPIPE:
    case ENXIO:
      return "niekas neskaito";
    default:
      return "sistemos klaida " + std::to_string(error);
  }
}

void refuse_company_files(const std::string& path) {
  std::string place = target_of(path).path.string();
  if (holds_database(place))
    throw StoreError(StoreFault::kNotWritable, "tai įmonės failas, perrašyti jo negalima: " + in_quotes(path));
  for (const std::string_view ending : kCompanions) {
    if (!place.ends_with(ending)) continue;
    place.resize(place.size() - ending.size());
    if (holds_database(place)) {
      throw StoreError(StoreFault::kNotWritable,
                       "tai įmonės failo žurnalo vieta, rašyti į ją negalima: " + in_quotes(path));
    }
    return;
  }
}

bool same_place(const std::string& a, const std::string& b) {
  std::error_code none;
  if (fs::equivalent(a, b, none)) return true;
  return !fs::exists(a, none) && !fs::exists(b, none) &&
         fs::weakly_canonical(fs::absolute(target_of(a).path), none) ==
             fs::weakly_canonical(fs::absolute(target_of(b).path), none);
}

bool is_place_of_company(const std::string& path, const std::string& company) {
  const std::string place = target_of(company).path.string();
  return same_place(path, place) || std::any_of(std::begin(kCompanions), std::end(kCompanions),
                                                [&](const char* each) { return same_place(path, place + each); });
}

void write_whole_file(const std::string& path, std::string_view bytes) {
  try {
    refuse_company_files(path);
    const Target target = target_of(path);
    struct stat about {};
    if (target.descriptor) {
      write_all(*target.descriptor, bytes);
    } else if (::stat(target.path.c_str(), &about) == 0 && !S_ISREG(about.st_mode)) {
      Descriptor special(::open(target.path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
      if (special.number() < 0) fail(errno);
      write_all(special.number(), bytes);
      special.close();
    } else {
      replace_plain_file(target.path.string(), bytes);
    }
  } catch (const std::system_error& error) {
    throw StoreError(StoreFault::kFailed,
                     "nepavyksta įrašyti failo " + in_quotes(path) + ": " + reason_of(error.code().value()));
  }
}

FileBeside::FileBeside(const std::string& target) : target_(target) {
  const std::string folder = folder_of(target);
  remove_left_behind(folder);
  for (;;) {
    path_ = (fs::path(folder) / kHiddenName).string();
    descriptor_ = ::mkostemp(path_.data(), O_CLOEXEC);
    if (descriptor_ < 0) fail(errno);
    // Another program may take the new file for one left behind until it is locked. Some disks know no locks: nothing
    // is taken for left behind there.
    struct stat about {};
    const bool locked = ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (locked && ::fstat(descriptor_, &about) == 0 && about.st_nlink > 0) return;
    ::close(descriptor_);
  }
}

FileBeside::~FileBeside() {
  if (!path_.empty()) ::unlink(path_.c_str());
  ::close(descriptor_);
}

void FileBeside::sync() const {
  if (::fsync(descriptor_) != 0) fail(errno);
}

void FileBeside::replace_target() {
  sync();
  if (::rename(path_.c_str(), target_.c_str()) != 0) fail(errno);
  path_.clear();
  sync_folder(folder_of(target_));
}

bool FileBeside::take_free_place() {
  sync();
  if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) != 0) {
    if (errno == EEXIST) return false;
    if (errno != EINVAL && errno != ENOSYS) fail(errno);
    // A disk that does not know this rename knows links.
    if (::link(path_.c_str(), target_.c_str()) != 0) {
      if (errno == EEXIST) return false;
      fail(errno);
    }
    ::unlink(path_.c_str());
  }
  path_.clear();
  sync_folder(folder_of(target_));
  return true;
}

}  // namespace quor
