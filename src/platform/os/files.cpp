// Files and folders over the file system library and POSIX.
#include "platform/os/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "base/text.h"
#include "platform/os/native.h"
#include "platform/os/paths.h"

namespace kalvane::os {
namespace {

namespace fs = std::filesystem;

struct ErrorText {
    int number;
    std::string_view text;
};

constexpr std::array error_texts{
    ErrorText{ENOENT, "ファイルまたはフォルダがありません。"},
    ErrorText{EEXIST, "同じ名前が既にあります。"},
    ErrorText{EACCES, "アクセスする権限がありません。"},
    ErrorText{EPERM, "アクセスする権限がありません。"},
    ErrorText{ENOTDIR, "フォルダではありません。"},
    ErrorText{EISDIR, "ファイルではありません。"},
    ErrorText{ENOSPC, "ディスクの空きがありません。"},
    ErrorText{EROFS, "書き込みできません。"},
    ErrorText{ENAMETOOLONG, "名前が長すぎます。"},
};

void before(std::string_view operation, std::string_view path) {
    if (file_hook.before) file_hook.before(operation, path);
}

struct stat status(const std::string& native, std::string_view path) {
    struct stat result {};
    if (stat(native.c_str(), &result) != 0) throw_file_error(errno, path);
    return result;
}

bool has_type(std::string_view operation, std::string_view path, mode_t type) {
    try {
        before(operation, path);
    } catch (const FileError&) {
        return false;
    }
    struct stat result {};
    return !path.empty() && stat(native_path(path).c_str(), &result) == 0 &&
           (result.st_mode & S_IFMT) == type;
}

class Descriptor {
  public:
    Descriptor(int fd, std::string_view path) : fd_(fd) {
        if (fd_ < 0) throw_file_error(errno, path);
    }
    ~Descriptor() { ::close(fd_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }

  private:
    int fd_;
};

void copy_content(int from, int to, std::string_view path) {
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t got = read(from, buffer.data(), buffer.size());
        if (got == 0) return;
        if (got < 0) throw_file_error(errno, path);
        for (ssize_t put = 0; put < got;) {
            const ssize_t n = write(to, buffer.data() + put, static_cast<std::size_t>(got - put));
            if (n < 0) throw_file_error(errno, path);
            put += n;
        }
    }
}

// Through a neighbour that is renamed, so that a copy that breaks off leaves the target as it was.
void copy_native(const std::string& source, const std::string& target, bool overwrite) {
    const Descriptor from(open(source.c_str(), O_RDONLY | O_CLOEXEC), program_path(source));
    struct stat info {};
    if (fstat(from.get(), &info) != 0) throw_file_error(errno, program_path(source));
    if (S_ISDIR(info.st_mode)) throw_file_error(EISDIR, program_path(source));
    struct stat old {};
    if (stat(target.c_str(), &old) == 0) {
        if (!overwrite) throw_file_error(EEXIST, program_path(target));
        if (S_ISDIR(old.st_mode)) throw_file_error(EISDIR, program_path(target));
    }
    std::string part = target + ".XXXXXX";
    const Descriptor to(mkostemp(part.data(), O_CLOEXEC), program_path(target));
    try {
        copy_content(from.get(), to.get(), program_path(target));
        const std::array<timespec, 2> times{info.st_atim, info.st_mtim};
        if (fchmod(to.get(), info.st_mode & 07777) != 0 || futimens(to.get(), times.data()) != 0 ||
            rename(part.c_str(), target.c_str()) != 0)
            throw_file_error(errno, program_path(target));
    } catch (...) {
        unlink(part.c_str());
        throw;
    }
}

void copy_tree(const fs::path& source, const fs::path& target, bool overwrite) {
    if (mkdir(target.c_str(), 0777) != 0 && errno != EEXIST)
        throw_file_error(errno, program_path(target.native()));
    for (const fs::directory_entry& entry : fs::directory_iterator(source)) {
        // links to folders may lead round in a circle
        if (entry.is_directory() && !entry.is_symlink())
            copy_tree(entry.path(), target / entry.path().filename(), overwrite);
        else if (entry.is_regular_file())
            copy_native(entry.path(), target / entry.path().filename(), overwrite);
    }
}

void make_deletable(const fs::path& folder, bool force) {
    if (!force && access(folder.c_str(), W_OK) != 0) throw_file_error(errno, program_path(folder.native()));
    if (force) fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add);
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.is_directory() && !entry.is_symlink()) make_deletable(entry.path(), force);
}

// The library's failures as ours.
template <class Work>
void translated(std::string_view path, Work work) {
    try {
        work();
    } catch (const fs::filesystem_error& error) {
        throw_file_error(error.code().value(), path);
    }
}

std::string without_end(std::string native) {
    while (native.size() > 1 && native.back() == '/') native.pop_back();
    return native;
}

}  // namespace

void throw_file_error(int error_number, std::string_view program_path) {
    std::string text = std::strerror(error_number);
    for (const ErrorText& row : error_texts)
        if (row.number == error_number) text = row.text;
    throw FileError(error_number, text + " " + std::string(program_path));
}

bool FileExists(std::string_view path) {
    return has_type("FileExists", path, S_IFREG);
}
bool FolderExists(std::string_view path) {
    return has_type("FolderExists", path, S_IFDIR);
}

void CopyFile(std::string_view source, std::string_view target, bool overwrite) {
    before("CopyFile", source);
    copy_native(native_path(source), native_path(target), overwrite);
}

void CopyFolder(std::string_view source, std::string_view target, bool overwrite) {
    before("CopyFolder", source);
    const std::string from = without_end(native_path(source)), to = without_end(native_path(target));
    if (!S_ISDIR(status(from, source).st_mode)) throw_file_error(ENOTDIR, source);
    if (to == from || to.starts_with(from + "/")) throw_file_error(EINVAL, target);
    translated(target, [&] { copy_tree(from, to, overwrite); });
}

void DeleteFolder(std::string_view path, bool force) {
    before("DeleteFolder", path);
    const std::string native = without_end(native_path(path));
    if (!S_ISDIR(status(native, path).st_mode)) throw_file_error(ENOTDIR, path);
    translated(path, [&] {
        if (!fs::is_symlink(native)) make_deletable(native, force);
        fs::remove_all(native);
    });
}

std::string Dir(std::string_view path, int attribute) {
    const auto last = path.find_last_of("\\/:");
    if (last + 1 == path.size()) return {};  // also an empty path: npos + 1 is 0
    try {
        before("Dir", path);
    } catch (const FileError&) {
        return {};
    }
    const std::string native = native_path(path);
    struct stat info {};
    if (stat(native.c_str(), &info) != 0) return {};
    if (S_ISDIR(info.st_mode) && !(attribute & attribute_folder)) return {};
    return native.substr(native.rfind('/') + 1);
}

void MkDir(std::string_view path) {
    before("MkDir", path);
    if (mkdir(without_end(native_path(path)).c_str(), 0777) != 0) throw_file_error(errno, path);
}

int GetAttr(std::string_view path) {
    before("GetAttr", path);
    constexpr int archive = 32;
    return S_ISDIR(status(native_path(path), path).st_mode) ? attribute_folder : archive;
}

std::int64_t FileLen(std::string_view path) {
    before("FileLen", path);
    return status(native_path(path), path).st_size;
}

DateTime FileDateTime(std::string_view path) {
    before("FileDateTime", path);
    return local_time(status(native_path(path), path).st_mtime);
}

void DeleteByPrefix(std::string_view path_prefix) {
    before("DeleteByPrefix", path_prefix);
    const std::string native = native_path(path_prefix);
    const std::size_t cut = native.rfind('/') + 1;
    const std::string folder = cut == 0 ? "." : native.substr(0, cut), prefix = native.substr(cut);
    if (prefix.empty()) throw_file_error(EINVAL, path_prefix);  // would be the whole folder
    std::size_t found = 0;
    translated(path_prefix, [&] {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            const std::string name = entry.path().filename();
            if (entry.is_directory() || !equal_fold(name.substr(0, prefix.size()), prefix)) continue;
            ++found;
            if (unlink(entry.path().c_str()) != 0)
                throw_file_error(errno, program_path(entry.path().native()));
        }
    });
    if (found == 0) throw_file_error(ENOENT, path_prefix);
}

}  // namespace kalvane::os
