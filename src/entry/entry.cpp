// Start, first drawing and closing of the main screen.
#include "entry/entry.h"

#include <array>
#include <exception>

#include "base/format.h"
#include "base/text.h"
#include "data/fields.h"
#include "data/query.h"
#include "document/clearing.h"
#include "document/loading.h"
#include "events/clear_button.h"
#include "events/events.h"
#include "events/focus.h"
#include "platform/os/clock.h"
#include "platform/os/process.h"
#include "platform/screen/host.h"
#include "screen/screen_display.h"
#include "screen/scrolling.h"
#include "screen/wheel.h"
#include "session/command_line.h"
#include "session/session.h"
#include "session/settings.h"
#include "session/sign_on.h"

namespace kalvane {
namespace {

// The box, then the end; what ended the process while the box stood may have closed everything already.
void end_with(const char* words) {
    message_box(words);
    if (!process_ended() || 実行環境.設定接続中 || 実行環境.主接続中) 終了処理();
    end_process();
}

// The screen's size: what its notice takes, with the frame around it. No size where nobody draws it.
void size_screen(EntryScreen& s) {
    constexpr int frame_width = 90, frame_height = 420;  // twips
    const std::optional<Placement> notice = host.placement ? host.placement(s.お知らせ) : std::nullopt;
    if (!notice) return;
    s.width = notice->width + frame_width;
    s.height = notice->top + notice->height + frame_height;
}

void 画面初期設定() {
    EntryScreen& s = screen();
    size_screen(s);
    std::string caption = プログラムID;
    caption.append("（").append(実行環境.名称).append("）");
    set_form_caption(s, caption);
    画面コード表読込();
    set_enabled(s.scl_行, false);
    set_number(s.scl_行, 0);
    実行環境.先頭コントロール = &s.営業請求日付年;
    実行環境.取得コントロール = 実行環境.離脱コントロール = 実行環境.先頭コントロール;
}

// A document that cannot be read is told of when the screen stands, as one that is typed.
template <class Work>
void read_at_start(Work work) {
    try {
        work();
    } catch (const std::exception& e) {
        実行環境.起動読込失敗 = e.what();
    }
}

void 伝票初期設定() {
    if (!実行環境.新規入力中) return read_at_start(起動読込);
    // a site left by a stray argument must not be saved
    if (!実行環境.引数起動) 実行環境.事業所コード = 実行環境.運用事業所コード;
    新規伝票初期化();
    if (実行環境.引用起動) read_at_start(起動参照読込);
}

void load_screen(Form&) {
    constexpr int lines_a_notch = 2;
    マウスホイール開始(screen(), screen().scl_行, lines_a_notch);
    画面初期設定();
    タイトル表示();
    伝票初期設定();
    画面再表示();
}

// 終了前確認: may the screen be closed?
void 終了前確認(Form&, bool& cancel) {
    if (実行環境.連携待ち中) {
        cancel = true;
        return;
    }
    if (!実行環境.新規入力中) {
        if (const Gap gap = 必須項目確認(); gap.area != Area::none) {
            未入力項目移動(gap);
            cancel = true;
            return;
        }
    }
    if (!入力破棄確認("終了しますか？")) {
        cancel = !process_ended();
        return;
    }
    if (!process_ended()) 強制終了();
}

void start() {
    build_entry_screen();
    画面イベント設定();
    install_event_copies();
    screen().Load = load_screen;
    screen().QueryUnload = 終了前確認;
    実行環境.主画面 = &screen();
    if (!データベース起動()) return end_with("データベースが使用できません。");
    if (!利用者情報読込()) return end_with("ユーザ情報が使用できません。");
    if (!検索条件名登録(業務メニュ, プログラムID))
        message_box("システムデータベースに問題があり登録できません");
    if (!操作権限確認(業務メニュ, プログラムID, Operation::start)) {
        if (process_ended()) return;
        return end_with("操作権限がありません。");
    }
    コマンドライン切出(Trim(os::command_line()));
    if (os::previous_instance(プログラムID, 実行環境.ルートフォルダ) && !実行環境.引数起動) {
        終了処理();
        return end_process();
    }
    show_form(screen());
    if (process_ended()) return;
    if (Control* first = next_stop(screen(), 実行環境.先頭コントロール->tab_index)) set_focus(*first);
    if (!実行環境.起動読込失敗.empty()) message_box(実行環境.起動読込失敗);
}

// Titles of the family's own programs; any other program stands for itself.
struct Title {
    const char* program;
    const char* title;
};
constexpr auto titles = std::to_array<Title>({
    {"Kalvane", "Kalvane"},
    {"Kalvaneデータ管理", "データ管理"},
    {"Kalvane補助機能", "補助機能"},
    {"Kalvaneサービスメニュ", "サービスメニュー"},
    {"Kalvaneマイメニュ", "マイメニュー"},
});

}  // namespace

void 起動処理() {
    try {
        start();
    } catch (const std::exception& e) {
        マウスホイール終了();
        end_with(e.what());
    }
    force_logs_now();
}

bool 利用者情報読込() {
    const bool known = 基本情報読込();
    RunContext& r = 実行環境;
    r.最終行 = -1;
    r.新規入力中 = true;
    const Date today = os::today();
    r.本日年 = Format(today.year, "0000");
    r.本日月 = Format(today.month, "00");
    r.本日日 = Format(today.day, "00");
    r.本日日付 = r.本日年 + r.本日月 + r.本日日;
    r.入力変更あり = r.処理中 = false;
    return known;
}

bool 検索条件名登録(const std::string& family, const std::string& program) {
    constexpr std::array<const char*, 3> keys{"事業所コード", "番号基準日付", "営業請求No"};
    std::string sql = "UPDATE " + family + " SET ";
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto i = static_cast<std::size_t>(letter - 'A');
        if (letter != 'A') sql += ", ";
        sql += std::string("条件項目名") + letter + " = " + literal(i < keys.size() ? keys[i] : "");
    }
    return 設定DB実行(sql + " WHERE プログラムID = " + literal(program));
}

void タイトル表示() {
    RunContext& r = 実行環境;
    ado::Recordset rs;
    r.事業所名称 = 主DB読込(rs, "SELECT * FROM M事業所 WHERE コード = " + literal(r.運用事業所コード))
                       ? text_of(rs, "名称")
                       : "";
    rs.Close();
    std::string title = プログラムID;
    for (const Title& t : titles)
        if (title == t.program) {
            title = t.title;
            break;
        }
    if (r.運用事業所コード != 全社事業所) {
        if (!blank(r.事業所名称)) title += "(" + r.事業所名称 + ")";
    } else if (r.事業所件数 > 0) {
        title += "(全社)";
    }
    if (!r.起動担当者コード.empty()) title += "「" + r.起動担当者名 + "」";
    set_caption(screen().prg_ttl, title);
}

void 強制終了() {
    マウスホイール終了();
    終了処理();
    end_process();
}

void reset_run() {
    for (ado::Connection* c :
         {static_cast<ado::Connection*>(&実行環境.主接続), static_cast<ado::Connection*>(&実行環境.設定接続)})
        if (c->is_open()) c->Close();
    実行環境 = RunContext{};
    static_cast<RunContext::Recordsets&>(実行環境.recordsets) = RunContext::Recordsets{};
    請求ヘッダ = HeaderRecord{};
    請求明細行 = LineArray{};
    reset_screen();
    build_entry_screen();
}

}  // namespace kalvane
