// Existence tests, copies and removals whose failures are booleans.
#include "data/file_helpers.h"

#include "base/text.h"
#include "data/fault_box.h"
#include "platform/os/files.h"

namespace kalvane {
namespace {

template <class Work>
bool tried(Work work) {
    try {
        work();
        return true;
    } catch (const os::FileError&) {
        return false;
    }
}

}  // namespace

bool ファイル存在確認(const std::string& path) {
    return os::FileExists(path);
}
bool フォルダ存在確認(const std::string& path) {
    return os::FolderExists(path);
}
bool ファイル複写(const std::string& source, const std::string& target) {
    return tried([&] { os::CopyFile(source, target, true); });
}
bool フォルダ複写(const std::string& source, const std::string& target) {
    return tried([&] { os::CopyFolder(source, target, true); });
}
bool フォルダ削除(const std::string& path) {
    return tried([&] { os::DeleteFolder(path, true); });
}

void フォルダ作成(const std::string& file_path) {
    if (blank(file_path)) return;
    std::size_t at = 0;  // the first character behind the share or the drive
    if (const std::size_t share = file_path.find("\\\\"); share != std::string::npos) {
        const std::size_t server_end = file_path.find('\\', share + 2);
        if (server_end == std::string::npos) return;
        const std::size_t share_end = file_path.find('\\', server_end + 1);
        if (share_end == std::string::npos) return;
        at = share_end + 1;
    } else if (const std::size_t drive = file_path.find(":\\"); drive != std::string::npos) {
        at = drive + 2;
    } else {
        return;
    }
    while ((at = file_path.find('\\', at)) != std::string::npos) {
        const std::string folder = file_path.substr(0, at);
        try {
            if (os::Dir(folder, os::attribute_folder).empty()) os::MkDir(folder);
        } catch (const os::FileError& e) {
            show_fault(Fault::folder_not_made, std::to_string(e.number()) + e.what());
        }
        ++at;
    }
}

std::string 文字列終端切詰(const std::string& buffer) {
    const std::size_t nul = buffer.find('\0');
    return nul == std::string::npos ? std::string() : buffer.substr(0, nul);
}

}  // namespace kalvane
