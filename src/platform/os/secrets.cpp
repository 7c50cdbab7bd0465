// Encryption of stored secrets over libsodium.
#include "platform/os/secrets.h"

#include <fcntl.h>
#include <poll.h>
#include <sodium.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <iterator>
#include <optional>
#include <vector>

#include "platform/os/files.h"
#include "platform/os/paths.h"

namespace kalvane::os {
namespace {

constexpr std::string_view form_mark = "s1:";  // in front of a stored text, for later forms
constexpr int base64_form = sodium_base64_VARIANT_URLSAFE_NO_PADDING;
using Key = std::array<unsigned char, crypto_secretbox_KEYBYTES>;
using Bytes = std::vector<unsigned char>;

std::string key_path;

[[noreturn]] void refuse(const char* words) {
    throw FileError(errno, words);
}

std::optional<Key> read_key() {
    if (key_path.empty() || sodium_init() < 0) return std::nullopt;
    const int file = open(native_path(key_path).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return std::nullopt;
    Key key{};
    unsigned char beyond = 0;
    const bool whole =
        read(file, key.data(), key.size()) == static_cast<ssize_t>(key.size()) && read(file, &beyond, 1) == 0;
    close(file);
    if (!whole) return std::nullopt;
    return key;
}

const unsigned char* bytes_of(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

// Standard input without echo. A signal that ends the process takes effect only when the echo is back.
class SilentTerminal {
  public:
    // Returns when a line can be read.
    SilentTerminal() {
        tcgetattr(STDIN_FILENO, &former_);
        termios silent = former_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        sigset_t ending{};
        sigemptyset(&ending);
        for (const int signal : {SIGINT, SIGQUIT, SIGTERM, SIGHUP}) sigaddset(&ending, signal);
        sigprocmask(SIG_BLOCK, &ending, &former_mask_);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
        const int signals = signalfd(-1, &ending, SFD_CLOEXEC);
        pollfd either[] = {{STDIN_FILENO, POLLIN, 0}, {signals, POLLIN, 0}};
        poll(either, std::size(either), -1);
        if (signals >= 0) close(signals);
        if (either[1].revents != 0) restore();
    }
    ~SilentTerminal() { restore(); }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;

  private:
    void restore() {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &former_);
        sigprocmask(SIG_SETMASK, &former_mask_, nullptr);
    }
    termios former_{};
    sigset_t former_mask_{};
};

}  // namespace

void set_key_file(std::string_view path) {
    key_path = path;
}

void create_key_file(std::string_view path) {
    if (sodium_init() < 0) refuse("鍵を作成できません。");
    const int file =
        open(native_path(path).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR | S_IRGRP);
    if (file < 0) {
        if (errno == EEXIST) return;
        refuse("鍵ファイルを作成できません。");
    }
    Key key{};
    randombytes_buf(key.data(), key.size());
    const bool written =
        write(file, key.data(), key.size()) == static_cast<ssize_t>(key.size()) && fsync(file) == 0;
    sodium_memzero(key.data(), key.size());
    if (close(file) == 0 && written) return;
    const int reason = errno;
    unlink(native_path(path).c_str());  // half a key would stand in the way of the next attempt
    errno = reason;
    refuse("鍵ファイルを書き込めません。");
}

std::string 暗号化(std::string_view plain) {
    if (plain.empty()) return {};
    std::optional<Key> key = read_key();
    if (!key) refuse("鍵ファイルを読み込めません。");
    Bytes box(crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES + plain.size());
    randombytes_buf(box.data(), crypto_secretbox_NONCEBYTES);
    crypto_secretbox_easy(box.data() + crypto_secretbox_NONCEBYTES, bytes_of(plain), plain.size(), box.data(),
                          key->data());
    sodium_memzero(key->data(), key->size());
    std::string text(sodium_base64_ENCODED_LEN(box.size(), base64_form), '\0');
    sodium_bin2base64(text.data(), text.size(), box.data(), box.size(), base64_form);
    text.resize(text.find('\0'));
    return std::string(form_mark).append(text);
}

std::string 復号(std::string_view stored) {
    if (!stored.starts_with(form_mark) || stored == form_mark) return {};
    stored.remove_prefix(form_mark.size());
    // the decoder would take a byte beyond ASCII for its last digit
    if (std::any_of(stored.begin(), stored.end(),
                    [](char c) { return static_cast<unsigned char>(c) > 0x7F; }))
        return {};
    Bytes box(stored.size());
    std::size_t size = 0;
    if (sodium_base642bin(box.data(), box.size(), stored.data(), stored.size(), nullptr, &size, nullptr,
                          base64_form) != 0 ||
        size <= crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES)
        return {};
    std::optional<Key> key = read_key();
    if (!key) return {};
    std::string plain(size - crypto_secretbox_NONCEBYTES - crypto_secretbox_MACBYTES, '\0');
    const int opened = crypto_secretbox_open_easy(
        reinterpret_cast<unsigned char*>(plain.data()), box.data() + crypto_secretbox_NONCEBYTES,
        size - crypto_secretbox_NONCEBYTES, box.data(), key->data());
    sodium_memzero(key->data(), key->size());
    return opened == 0 ? plain : std::string();
}

std::string read_secret_line() {
    std::optional<SilentTerminal> silent;
    if (isatty(STDIN_FILENO)) silent.emplace();
    std::string line;
    std::getline(std::cin, line);
    if (line.ends_with('\r')) line.pop_back();  // of a file from elsewhere
    return line;
}

}  // namespace kalvane::os
