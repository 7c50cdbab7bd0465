// Program paths into native ones and back.
#include "platform/os/paths.h"

#include <dirent.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "base/text.h"

namespace kalvane::os {
namespace {

std::string share_root;
std::string executable;

bool drive(std::string_view path) {
    const auto letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return path.size() >= 2 && letter(path[0]) && path[1] == ':';
}

bool share(std::string_view path) {
    return path.substr(0, 2) == "\\\\";
}

std::string slashes(std::string_view path, char from, char to) {
    std::string result(path);
    for (char& c : result)
        if (c == from) c = to;
    return result;
}

bool exists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

// The name in the folder that equals name but for case; name itself when there is none.
std::string matching_name(const std::string& folder, const std::string& name) {
    std::string result = name;
    DIR* entries = opendir(folder.empty() ? "." : folder.c_str());
    if (!entries) return result;
    while (const dirent* entry = readdir(entries)) {
        if (!equal_fold(entry->d_name, name)) continue;
        result = entry->d_name;
        break;
    }
    closedir(entries);
    return result;
}

// The part of path behind kept (which stands as it is), each part matched with what is there.
std::string match_case(const std::string& path, std::size_t kept) {
    if (exists(path)) return path;
    std::string result = path.substr(0, kept);
    bool there = true;
    for (std::size_t i = kept; i < path.size();) {
        if (path[i] == '/') {
            result += path[i++];
            continue;
        }
        const std::size_t end = std::min(path.find('/', i), path.size());
        const std::string name = path.substr(i, end - i);
        if (there && !exists(result + name)) {
            const std::string match = matching_name(result, name);
            there = match != name;
            result += match;
        } else {
            result += name;
        }
        i = end;
    }
    return result;
}

std::string find_in_path(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::string_view folders = path ? path : "";
    while (!folders.empty()) {
        const std::string_view folder = folders.substr(0, folders.find(':'));
        folders.remove_prefix(std::min(folder.size() + 1, folders.size()));
        const std::filesystem::path candidate = std::filesystem::path(folder.empty() ? "." : folder) / name;
        std::error_code ignored;
        if (std::filesystem::is_regular_file(candidate, ignored) && access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return name;
}

}  // namespace

std::string native_path(std::string_view path) {
    if (share(path)) {
        // without an installation there are no shares: a place where nothing can be
        const std::string root = share_root.empty() ? "/dev/null" : share_root;
        return match_case(root + "/" + slashes(path.substr(2), '\\', '/'), root.size());
    }
    if (drive(path)) path.remove_prefix(2);
    return match_case(slashes(path, '\\', '/'), 0);
}

std::string program_path(std::string_view native) {
    const std::string path = slashes(native, '/', '\\');
    return path.substr(0, 1) == "\\" ? "C:" + path : path;
}

void set_share_root(std::string_view native_folder) {
    share_root = native_folder;
}

const std::string& executable_path() {
    if (executable.empty()) set_executable_path(program_invocation_name);
    return executable;
}

void set_executable_path(std::string_view name) {
    if (drive(name) || share(name)) {
        executable = name;
        return;
    }
    const std::string path =
        name.find('/') == std::string_view::npos ? find_in_path(std::string(name)) : std::string(name);
    // by name only: resolving links would lead out of the installation that links to a program
    executable = program_path(std::filesystem::absolute(path).lexically_normal().native());
}

}  // namespace kalvane::os
