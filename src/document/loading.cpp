// Finds documents, loads them, decides on typed numbers.
#include "document/loading.h"

#include <array>
#include <memory>

#include "base/text.h"
#include "data/query.h"
#include "document/browse_log.h"
#include "document/calculation.h"
#include "document/clearing.h"
#include "document/source_header.h"
#include "document/source_lines.h"
#include "platform/os/process.h"
#include "records/record_copy.h"
#include "rules/number_allocation.h"
#include "session/command_line.h"

namespace kalvane {
namespace {

constexpr const char* no_number = "00000000";

constexpr auto date_fields = std::to_array<std::string HeaderRecord::*>(
    {&HeaderRecord::営業請求日付, &HeaderRecord::営業請求日付年, &HeaderRecord::営業請求日付月,
     &HeaderRecord::営業請求日付日});

// A half-read document must not stay on the screen; nor its date, which a clear keeps and may stumble over,
// nor its site: the cleared document is of the site given.
template <class Work>
void or_cleared(const std::string& site, Work work) {
    const HeaderRecord before = 請求ヘッダ;
    try {
        work();
    } catch (...) {
        実行環境.recordsets.営業請求.Close();
        for (auto m : date_fields) 請求ヘッダ.*m = before.*m;
        実行環境.事業所コード = site;
        文書初期化();
        throw;
    }
}

// A source that cannot be read leaves the document that it was wanted for.
template <class Work>
void or_as_before(const SourceRow& source, Work work) {
    const auto before = std::make_unique<RecordCopy>();
    try {
        work();
    } catch (...) {
        (実行環境.recordsets.*source.recordset).Close();
        before->restore();
        throw;
    }
}

// A pick in a list window leaves its key here; a condition text of the same length holds the guard word.
bool take_pick(const SourceRow& source, std::string& site, std::string& base_date) {
    const std::string pick = Trim(実行環境.選択戻り値);
    if (Len(pick) != 20 || contains(pick, source.guard)) return false;
    site = Mid(pick, 2, 3);
    base_date = Mid(pick, 5, 8);
    実行環境.選択戻り値.clear();
    return true;
}

bool usable(const DocumentKey& key) {
    return key.No != no_number && key.番号基準日付 > no_number && !blank(key.事業所コード) &&
           !blank(key.番号基準日付) && !key.No.empty();
}

}  // namespace

bool 伝票存在確認(SourceKind kind, const std::string& site, const std::string& base_date,
                  const std::string& number) {
    const SourceRow& source = source_row(kind);
    const std::string table = source.header_table;
    const bool stored = kind == SourceKind::invoice;
    if (stored) 閲覧記録(プログラムID, site, base_date, number, "");
    return 主DB読込(
        実行環境.recordsets.*source.recordset,
        "SELECT TOP 1 " + table +
            ".*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS セクション名" +
            " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN " + table +
            " ON M担当者.コード = " + table + ".担当者コード) ON M部門.コード = " + table +
            ".部門コード) ON Mセクション.コード = " + table + ".セクションコード" + " WHERE " + table + "." +
            source.number_column + " = " + literal(number) + " AND " + table +
            ".事業所コード = " + literal(site) + " AND " + table + ".番号基準日付 = " + literal(base_date),
        stored);
}

void 伝票ヘッダ読込(SourceKind kind) {
    if (kind == SourceKind::invoice)
        stored_header();
    else
        source_header(source_row(kind));
}

void 伝票明細読込(SourceKind kind) {
    if (kind == SourceKind::invoice)
        stored_lines();
    else
        source_lines(source_row(kind));
}

void 伝票読込(SourceKind kind) {
    伝票ヘッダ読込(kind);
    明細全クリア();
    伝票明細読込(kind);
}

void 伝票読込取消(SourceKind kind) {
    const SourceRow& source = source_row(kind);
    (実行環境.recordsets.*source.recordset).Close();
    if (kind == SourceKind::invoice) {
        文書初期化();
        return;
    }
    for (auto m : {source.site, source.base_date, source.number}) (請求ヘッダ.*m).clear();
}

bool 伝票表示読込(const std::string& site, const std::string& base_date, const std::string& number) {
    bool found = false;
    or_cleared(std::string(実行環境.事業所コード), [&] {
        found = 営業請求存在確認(site, base_date, number);
        if (found) {
            伝票読込(SourceKind::invoice);
            合計計算();
        } else {
            伝票読込取消(SourceKind::invoice);
        }
    });
    return found;
}

bool 起動読込() {
    const RunContext& r = 実行環境;
    bool found = false;
    or_cleared(r.運用事業所コード, [&] {
        found = 営業請求存在確認(r.事業所コード, r.番号基準日付, r.営業請求No);
        if (found) 伝票読込(SourceKind::invoice);
    });
    if (!found) {
        伝票読込取消(SourceKind::invoice);
        文書初期化();
    }
    return found;
}

void 起動参照読込() {
    const std::string text = Trim(os::command_line());
    for (const SourceRow& source : source_rows) {
        if (!source.argument) continue;
        const DocumentKey key = 伝票キー切出(text, source.position);
        const auto keep_key = [&] {
            実行環境.*source.argument = key;
            請求ヘッダ.*source.site = key.事業所コード;
            請求ヘッダ.*source.base_date = key.番号基準日付;
            請求ヘッダ.*source.number = key.No;
        };
        if (!usable(key)) {
            keep_key();
            continue;
        }
        or_as_before(source, [&] {
            keep_key();
            if (!伝票存在確認(source.kind, key.事業所コード, key.番号基準日付, key.No)) {
                伝票読込取消(source.kind);
                文書初期化();
                return;
            }
            伝票読込(source.kind);
            合計計算();
            実行環境.入力変更あり = true;
        });
        return;
    }
}

bool 営業請求No変更(const std::string& text) {
    const SourceRow& source = source_row(SourceKind::invoice);
    RunContext& r = 実行環境;
    if (text == r.営業請求No) return false;
    r.入力変更あり = true;
    r.案内メッセージ.clear();
    if (text.empty() || text == no_number) {
        r.営業請求No = 次番号参照(請求番号ID, r.番号基準日付, r.事業所コード);
        return true;
    }
    std::string site = r.事業所コード, base_date = r.番号基準日付;
    take_pick(source, site, base_date);
    if (!伝票表示読込(site, base_date, text)) {
        if (r.営業請求No.empty()) r.営業請求No = text;
        r.案内メッセージ = "新規情報です。";
    }
    return true;
}

bool change_source(SourceKind kind, const std::string& text) {
    const SourceRow& source = source_row(kind);
    RunContext& r = 実行環境;
    HeaderRecord& h = 請求ヘッダ;
    if (text == h.*source.number) return false;
    or_as_before(source, [&] {
        r.入力変更あり = true;
        r.案内メッセージ.clear();
        if (text.empty()) {
            (h.*source.number).clear();
            return;
        }
        std::string site = h.*source.site, base_date = h.*source.base_date;
        if (!take_pick(source, site, base_date)) {
            if (site.empty()) site = r.事業所コード;
            if (base_date.empty()) base_date = 番号基準日付取得(source.number_id, h.営業請求日付);
        }
        if (伝票存在確認(kind, site, base_date, text)) {
            伝票読込(kind);
            合計計算();
        } else {
            伝票読込取消(kind);
            r.案内メッセージ = "該当情報がありません。";
        }
    });
    return true;
}

}  // namespace kalvane
