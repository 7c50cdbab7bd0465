// Verbs and options of KalvaneSetup.
#include "setup/command.h"

#include <charconv>
#include <exception>
#include <ostream>

#include "platform/os/secrets.h"
#include "setup/generate.h"
#include "setup/install.h"
#include "setup/schema.h"
#include "setup/upgrade.h"

namespace kalvane::setup {
namespace {

constexpr std::string_view usage =
    "使い方:\n"
    "  KalvaneSetup create ROOT --empty   会社、本社、担当者だけの環境を作成します\n"
    "  KalvaneSetup create ROOT --demo    見本の会社の環境を作成します\n"
    "  KalvaneSetup check ROOT            ROOT がこの版の環境なら 0、それ以外は 1 で終了します\n"
    "  KalvaneSetup upgrade ROOT          前の版の環境をこの版にします。中断しても、もう一度実行できます\n"
    "  KalvaneSetup pin ROOT OPERATOR     担当者の暗証番号を標準入力から設定します\n"
    "  KalvaneSetup pin ROOT --site CODE  事業所の特権暗証番号を標準入力から設定します\n"
    "  KalvaneSetup generate ROOT --invoices N --lines M --seed S\n"
    "                                     測定用の請求書を N 件、各 M 行 (0～998) 追加します\n"
    "終了状態: 0 完了、1 拒否または失敗、2 引数の誤り\n";

struct UsageError {
    std::string text;
};

template <class Number>
Number number_option(std::string_view name, const std::string& text, Number low, Number high) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value < low || value > high)
        throw UsageError{std::string(name) + " は " + std::to_string(low) + "～" + std::to_string(high) +
                         " の数です: " + text};
    return value;
}

void create(const std::vector<std::string>& arguments, const std::string& programs, std::ostream& out) {
    if (arguments.size() != 3 || (arguments[2] != "--empty" && arguments[2] != "--demo"))
        throw UsageError{"create には ROOT と --empty か --demo が必要です。"};
    create_installation({.root = arguments[1],
                         .programs = programs,
                         .content = arguments[2] == "--demo" ? Content::demo : Content::empty});
    out << "作成しました (版 " << schema_version << "): " << checked_root(arguments[1]) << "\n";
}

int check(const std::vector<std::string>& arguments, std::ostream& out) {
    if (arguments.size() != 2) throw UsageError{"check には ROOT が必要です。"};
    const int version = installed_version(arguments[1]);
    if (version < 0)
        out << "環境がありません。\n";
    else
        out << "環境の版 " << version << "、この KalvaneSetup の版 " << schema_version << "\n";
    return version == schema_version ? 0 : 1;
}

void upgrade(const std::vector<std::string>& arguments, std::ostream& out) {
    if (arguments.size() != 2) throw UsageError{"upgrade には ROOT が必要です。"};
    upgrade_installation(arguments[1]);
    out << "この版にしました (版 " << schema_version << "): " << checked_root(arguments[1]) << "\n";
}

void pin(const std::vector<std::string>& arguments, std::ostream& out) {
    const bool site = arguments.size() > 2 && arguments[2] == "--site";
    if (arguments.size() != (site ? 4u : 3u))
        throw UsageError{"pin には ROOT と担当者コード、または --site と事業所コードが必要です。"};
    set_pin(arguments[1], arguments.back(), site, os::read_secret_line());
    out << "暗証番号を設定しました。\n";
}

void generate(const std::vector<std::string>& arguments, std::ostream& out) {
    if (arguments.size() != 8)
        throw UsageError{"generate には ROOT と --invoices、--lines、--seed が必要です。"};
    GenerateRequest request{.root = arguments[1]};
    bool invoices = false, lines = false, seed = false;
    for (std::size_t i = 2; i < arguments.size(); i += 2) {
        const std::string &name = arguments[i], &value = arguments[i + 1];
        if (name == "--invoices" && !invoices) {
            invoices = true;
            request.invoices = number_option<std::int64_t>(name, value, 1, most_invoices);
        } else if (name == "--lines" && !lines) {
            lines = true;
            request.lines = number_option<int>(name, value, 0, most_lines);
        } else if (name == "--seed" && !seed) {
            seed = true;
            request.seed = number_option<std::uint64_t>(name, value, 0, UINT64_MAX);
        } else {
            throw UsageError{"引数の誤りです: " + name};
        }
    }
    generate_invoices(request);
    out << "請求書を " << request.invoices << " 件追加しました。\n";
}

}  // namespace

int run_command(const std::vector<std::string>& arguments, const std::string& programs, std::ostream& out,
                std::ostream& err) {
    try {
        const std::string command = arguments.empty() ? "" : arguments[0];
        if (command == "check") return check(arguments, out);
        if (command == "create")
            create(arguments, programs, out);
        else if (command == "upgrade")
            upgrade(arguments, out);
        else if (command == "pin")
            pin(arguments, out);
        else if (command == "generate")
            generate(arguments, out);
        else
            throw UsageError{command.empty() ? "命令がありません。" : "命令の誤りです: " + command};
        return 0;
    } catch (const UsageError& e) {
        err << e.text << "\n" << usage;
        return 2;
    } catch (const std::exception& e) {
        err << e.what() << "\n";
        return 1;
    }
}

}  // namespace kalvane::setup
