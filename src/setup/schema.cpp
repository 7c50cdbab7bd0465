// The tables of the databases, row by row.
#include "setup/schema.h"

#include <array>
#include <stdexcept>

#include "base/text.h"
#include "records/columns.h"

namespace kalvane::setup {
namespace {

// A table whose columns stand here. The lists hold names parted by single blanks.
struct PlainTable {
    std::string_view name;
    unsigned databases = main_database;
    std::string_view keys = "";
    std::string_view texts = "";
    std::string_view numbers = "";
};

constexpr unsigned all_databases = main_database | config_database | other_database;

constexpr auto plain_tables = std::to_array<PlainTable>({
    {.name = "セットアップ情報", .databases = all_databases, .keys = "版", .texts = "内容 作成日時"},

    // configuration
    {.name = "データベース定義",
     .databases = config_database,
     .keys = "情報種類",
     .texts = "db dbmw ドライバ名 データベース名 サーバー名 接続文字列 ユーザーID パスワード プロバイダ名 "
              "データソース名"},
    {.name = "動作環境定義",
     .databases = config_database,
     .keys = "動作環境定義ID",
     .texts = "運用事業所コード 起動担当者コード インストール区分 CL更新実行区分 バックアップ日付 "
              "運用条件切替日付 "
              "バックアップ方法 バックアップ日指定 月曜バックアップ 火曜バックアップ 水曜バックアップ "
              "木曜バックアップ 金曜バックアップ 土曜バックアップ 日曜バックアップ バックアップ開始時刻 "
              "バックアップフォルダ"},
    {.name = "Kalvane",
     .databases = config_database,
     .keys = "プログラムID",
     .texts = "処理分類 条件項目名A 条件項目名B 条件項目名C 条件項目名D 条件項目名E 条件項目名F 条件項目名G "
              "条件項目名H 条件項目名I 条件項目名J 条件項目名K 条件項目名L 条件項目名M 条件項目名N "
              "条件項目名O 条件項目名P 条件項目名Q 条件項目名R 条件項目名S 条件項目名T 条件項目名U "
              "条件項目名V 条件項目名W 条件項目名X 条件項目名Y 条件項目名Z"},
    {.name = "プログラム稼動履歴",
     .databases = config_database,
     .texts = "実行日付 プログラムID proccounter 摘要 運用事業所コード 起動担当者コード ユーザID"},
    {.name = "プログラム連携情報",
     .databases = config_database,
     .texts = "発信日時 発信プログラムID 受信プログラムID 受信期限 連携区分 起動連携情報 終了連携情報 "
              "運用事業所コード 起動担当者コード ユーザID"},
    {.name = "プログラムクリップボード",
     .databases = config_database,
     .texts = "貼付日時 貼付プログラムID 運用事業所コード 起動担当者コード ユーザID"},
    {.name = "プログラムクリップボード明細",
     .databases = config_database,
     .texts = "貼付日時 貼付プログラムID 貼付連番 貼付情報区分 伝票番号ID 伝票事業所コード 伝票番号基準日付 "
              "伝票No "
              "伝票固有行No 伝票付加情報 基本情報区分 基本情報コード 基本情報明細コード 基本付加情報 "
              "運用事業所コード 起動担当者コード ユーザID"},

    // the aggregation queue goes to either database, by 更新実行区分
    {.name = "未集計情報",
     .databases = main_database | config_database,
     .texts =
         "事業所コード 番号ID 番号基準日付 履歴No 赤黒区分 伝票No 追加キー項目 データフラグ 登録情報区分 "
         "予備項目"},

    // company, sites, staff
    {.name = "Mユーザ",
     .keys = "ID",
     .texts =
         "名称 郵便番号 住所A 住所B 住所C 代表者名 電話 FAX HOMEPAGE EMAIL 会社ロゴfile 社印file 銀行口座A "
         "銀行口座B 銀行口座C 銀行口座D 決算月 決算日 締日区分 締日 決済方法 決済月 決済日 手形サイト "
         "売上金額丸め方法 仕入金額丸め方法 在庫評価方法 売上数量少数以下桁数 売上単価少数以下桁数 "
         "仕入数量少数以下桁数 仕入単価少数以下桁数 在庫数量少数以下桁数 在庫単価少数以下桁数 "
         "重量少数以下桁数 得意先単価自動更新区分 納品先単価自動更新区分 仕入先単価自動更新区分 "
         "写真フォルダ ドキュメントフォルダ 総合振込ファイル 基本読込フォルダ 帳票イメージフォルダ "
         "その他読込ファイル 本支店連携フォルダ テキスト出力フォルダ BACKUPフォルダ 明細保存月数 "
         "統計保存年数 整理実施可能日自 整理実施可能日至 整理実施可能時刻 明細整理実行日 統計整理実行日 "
         "伝票番号管理区分 暗証番号有無 特権暗証番号 更新実行区分 システム特権暗証番号 登録日付 更新日付",
     .numbers = "現金決済金額"},
    {.name = "M事業所",
     .keys = "コード",
     .texts = "名称 郵便番号 住所A 住所B 住所C 代表者名 電話 FAX 登録番号 HOMEPAGE EMAIL 銀行口座A 銀行口座B "
              "銀行口座C 銀行口座D 総合振込ファイル 基本読込フォルダ 帳票イメージフォルダ その他読込ファイル "
              "本支店連携フォルダ テキスト出力フォルダ BACKUPフォルダ 地区コード 暗証番号有無 特権暗証番号 "
              "更新実行区分"},
    {.name = "M他業務連携",
     .keys = "コード",
     .texts = "業務名 連携有無区分 連携DB 連携DBMW 連携データソース名 連携ドライバ名 連携接続文字列 "
              "連携データベース名 連携サーバー名 連携ユーザーID 連携パスワード 連携アプリフォルダ "
              "顧客更新有無区分 得意先更新有無区分 納品先更新有無区分 仕入先更新有無区分 メーカ更新有無区分 "
              "対応先更新有無区分 商品更新有無区分 社員更新有無区分"},
    {.name = "M担当者",
     .keys = "コード",
     .texts = "氏名 カナ 事業所コード 部門コード セクションコード 役職コード 社員区分 在籍区分 退社日付 "
              "ログインID "
              "暗証番号 アクセス権限 処理分類0操作許可 処理分類1操作許可 処理分類2操作許可 処理分類3操作許可 "
              "処理分類4操作許可 処理分類5操作許可 処理分類6操作許可 処理分類7操作許可 処理分類8操作許可 "
              "処理分類9操作許可 操作許可 入力許可 修正許可 削除許可 印刷許可 プレビュ許可 テキスト出力許可 "
              "イメージ出力許可"},
    {.name = "担当者別操作許可プログラム",
     .keys = "担当者コード 業務メニュ プログラムID",
     .texts = "操作許可 入力許可 修正許可 削除許可 印刷許可 プレビュ許可 テキスト出力許可 イメージ出力許可"},
    {.name = "M部門", .keys = "コード", .texts = "名称 稼動状況区分"},
    {.name = "Mセクション", .keys = "コード", .texts = "名称 稼動状況区分"},
    {.name = "使用状況", .texts = "コンピュータID ユーザID プログラムID 開始日時 終了日時"},

    // partners and products
    {.name = "M得意先",
     .keys = "コード",
     .texts =
         "名称A 名称B 略称 カナ 郵便番号 住所A 住所B 住所C 電話 電話番号 御担当者名 担当者コード 消費税区分 "
         "消費税算出区分 消費税丸め方法 消費税丸め桁位置 消費税端数調整区分 名称入力区分 取引状況区分"},
    {.name = "M得意先御担当者",
     .keys = "得意先コード 御担当者コード",
     .texts = "氏名 カナ 電話 電話番号 EMAIL"},
    {.name = "M納品先",
     .keys = "コード",
     .texts = "名称A 名称B 略称 カナ 郵便番号 住所A 住所B 住所C 電話 電話番号 担当者コード 名称入力区分 "
              "取引状況区分"},
    {.name = "M仕入先",
     .keys = "コード",
     .texts = "名称A 名称B 略称 カナ 郵便番号 住所A 住所B 住所C 電話 電話番号 担当者コード 消費税区分 "
              "消費税算出区分 消費税丸め方法 消費税丸め桁位置 消費税端数調整区分 名称入力区分 取引状況区分"},
    {.name = "Mメーカ",
     .keys = "コード",
     .texts = "名称A 名称B 略称 カナ 郵便番号 住所A 住所B 住所C 電話 電話番号 担当者コード 取引状況区分"},
    {.name = "M対応先",
     .keys = "コード",
     .texts = "名称A 名称B 略称 カナ 郵便番号 住所A 住所B 住所C 電話 電話番号 担当者コード 得意先コード "
              "仕入先コード 取引状況区分"},
    {.name = "M商品",
     .keys = "コード",
     .texts =
         "名称A 名称B カナ 単位 品区分 在庫管理区分 取扱状況区分 商品分類コード 仕入先コード メーカコード "
         "得意先コード 売上課税区分 売上消費税区分 仕入課税区分 仕入消費税区分",
     .numbers = "税抜販売定価 税抜販売単価 税込販売単価 税抜仕入単価 税込仕入単価"},
    {.name = "M商品分類", .keys = "コード", .texts = "名称 使用状況区分"},
    {.name = "M付属書類",
     .keys = "情報名 情報識別ID SEQNo",
     .texts = "書類名 タイトル 伝票番号ID 伝票事業所コード 伝票番号基準日付 伝票No 伝票日付 対応先コード "
              "得意先コード "
              "納品先コード 仕入先コード 銀行コード 科目コード 社員コード 担当者コード 部門コード "
              "セクションコード 商品コード メーカコード ユーザID 登録日付",
     .numbers = "対象金額"},

    // rates, numbers, the browse log
    {.name = "G消費税", .keys = "施行日", .numbers = "消費税率"},
    {.name = "A番号情報", .keys = "番号ID", .texts = "連番種類 連番 履歴連番 更新プログラム"},
    {.name = "A期日別番号情報", .keys = "番号ID 期日", .texts = "連番 履歴連番"},
    {.name = "A事業所別番号情報", .keys = "事業所コード 番号ID", .texts = "連番 履歴連番"},
    {.name = "A事業所別期日別番号情報", .keys = "事業所コード 番号ID 期日", .texts = "連番 履歴連番"},
    {.name = "T閲覧",
     .keys = "事業所コード 番号基準日付 閲覧No",
     .texts =
         "閲覧日付 閲覧時刻 担当者コード 担当者名 閲覧情報 伝票事業所コード 伝票番号基準日付 伝票No キー項目 "
         "閲覧区分 閲覧メモ 承認日付 承認者コード 承認区分 ユーザID 登録日付 更新日付"},

    // code tables
    {.name = "K消費税区分", .keys = "区分", .texts = "名称"},
    {.name = "K消費税算出区分", .keys = "区分", .texts = "名称"},
    {.name = "K請求消費税表示区分", .keys = "区分", .texts = "名称"},
    {.name = "K請求合計表示区分", .keys = "区分", .texts = "名称"},
    {.name = "K請求行区分", .keys = "区分", .texts = "名称"},
    {.name = "K取引状況区分", .keys = "区分", .texts = "名称"},
    {.name = "K品区分", .keys = "区分", .texts = "名称"},
    {.name = "K在庫管理区分", .keys = "区分", .texts = "名称"},
    {.name = "K取扱状況区分", .keys = "区分", .texts = "名称"},
    {.name = "K在籍区分", .keys = "区分", .texts = "名称"},
    {.name = "K社員区分", .keys = "区分", .texts = "名称"},
    {.name = "K使用状況区分", .keys = "区分", .texts = "名称"},
    {.name = "K稼動状況区分", .keys = "区分", .texts = "名称"},
});

// A document table, derived from the columns of the invoice: its own words take the place of the invoice's.
enum class Shape { live, history, source };
struct DocumentTable {
    std::string_view name;
    bool lines;  // the lines of the document, else its header
    Shape shape;
    std::string_view document = "営業請求";  // in place of 営業請求
    std::string_view amount = "請求";        // in place of 請求
    std::string_view more = "";              // texts behind the invoice's
};

constexpr std::string_view header_prospects = "得意先対応先区分 納品先対応先区分";
constexpr std::string_view line_prospects = "仕入先対応先区分";

constexpr auto document_tables = std::to_array<DocumentTable>({
    {"T営業請求", false, Shape::live},
    {"T営業請求明細", true, Shape::live},
    {"R営業請求", false, Shape::history},
    {"R営業請求明細", true, Shape::history},
    {"T営業見積", false, Shape::source, "営業見積", "見積", header_prospects},
    {"T営業見積明細", true, Shape::source, "営業見積", "見積", line_prospects},
    {"T顧客注文", false, Shape::source, "顧客注文", "注文", header_prospects},
    {"T顧客注文明細", true, Shape::source, "顧客注文", "注文", line_prospects},
    {"T営業納品", false, Shape::source, "営業納品", "納品"},
    {"T営業納品明細", true, Shape::source, "営業納品", "納品"},
});

struct Index {
    std::string_view table;
    std::string_view columns;
};

constexpr auto indexes = std::to_array<Index>({
    // document lists and stepping: by date and number, by customer, by destination, by number
    {"T営業請求", "営業請求日付 営業請求No"},
    {"T営業請求", "事業所コード 営業請求日付 営業請求No"},
    {"T営業請求", "得意先コード 営業請求日付 営業請求No"},
    {"T営業請求", "納品先コード 営業請求日付 営業請求No"},
    {"T営業請求", "営業請求No 営業請求日付"},
    // the number of a history row
    {"R営業請求", "事業所コード 番号基準日付 営業請求履歴No 赤黒区分 営業請求No"},
    {"R営業請求明細", "事業所コード 番号基準日付 営業請求履歴No 赤黒区分 営業請求No 営業請求固有行No"},
    // is the document referred to?
    {"T営業請求", "参照営業請求事業所コード 参照営業請求番号基準日付 参照営業請求No"},
    // lists of the texts used earlier
    {"T営業請求", "タイトル 営業請求日付"},
    {"T営業請求", "支払条件 営業請求日付"},
    {"T営業請求", "得意先名称A 営業請求日付"},
    {"T営業請求", "納品先名称A 営業請求日付"},
    {"T営業請求明細", "商品名 営業請求日付"},
    {"T営業請求明細", "仕入先名称A 営業請求日付"},
    // the same for the source documents
    {"T営業見積", "営業見積日付 営業見積No"},
    {"T営業見積", "事業所コード 営業見積日付 営業見積No"},
    {"T営業見積", "得意先コード 営業見積日付 営業見積No"},
    {"T営業見積", "営業見積No 営業見積日付"},
    {"T営業見積", "タイトル 営業見積日付"},
    {"T営業見積", "得意先名称A 営業見積日付"},
    {"T顧客注文", "顧客注文日付 顧客注文No"},
    {"T顧客注文", "事業所コード 顧客注文日付 顧客注文No"},
    {"T顧客注文", "得意先コード 顧客注文日付 顧客注文No"},
    {"T顧客注文", "顧客注文No 顧客注文日付"},
    {"T顧客注文", "タイトル 顧客注文日付"},
    {"T顧客注文", "得意先名称A 顧客注文日付"},
    {"T営業納品", "営業納品日付 営業納品No"},
    {"T営業納品", "事業所コード 営業納品日付 営業納品No"},
    {"T営業納品", "得意先コード 営業納品日付 営業納品No"},
    {"T営業納品", "納品先コード 営業納品日付 営業納品No"},
    {"T営業納品", "営業納品No 営業納品日付"},
    {"T営業納品", "タイトル 営業納品日付"},
    {"T営業納品", "得意先名称A 営業納品日付"},
    // tables without a key of their own
    {"使用状況", "コンピュータID ユーザID"},
    {"プログラム稼動履歴", "実行日付"},
    {"プログラム連携情報", "受信プログラムID 発信日時"},
    {"プログラムクリップボード明細", "貼付プログラムID 貼付日時"},
});

// ---- the tables above, checked

// The word at the head of rest, which is cut from it with the blank behind.
constexpr std::string_view next_word(std::string_view& rest) {
    const std::size_t end = rest.find(' ');
    const std::string_view word = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    return word;
}

constexpr int count_word(std::string_view list, std::string_view word) {
    int n = 0;
    while (!list.empty()) n += next_word(list) == word;
    return n;
}

constexpr bool plain_tables_sound() {
    for (const PlainTable& t : plain_tables) {
        if (t.keys.empty() && t.texts.empty()) return false;
        for (const PlainTable& u : plain_tables)
            if (&t != &u && t.name == u.name) return false;
        for (std::string_view list : {t.keys, t.texts, t.numbers})
            while (!list.empty()) {
                const std::string_view word = next_word(list);
                if (word.empty()) return false;
                if (count_word(t.keys, word) + count_word(t.texts, word) + count_word(t.numbers, word) != 1)
                    return false;
            }
    }
    return true;
}
static_assert(plain_tables_sound(), "a table or a column stands twice, or a list has an empty word");

// ---- columns of the document tables

// The keys of the invoice's own sources: another document has no such columns.
bool is_source_key(std::string_view column) {
    for (std::string_view source : {"営業見積", "顧客注文", "営業納品", "参照営業請求"})
        for (std::string_view part : {"事業所コード", "番号基準日付", "No"})
            if (column == std::string(source).append(part)) return true;
    return false;
}

std::string renamed(std::string_view column, const DocumentTable& table) {
    if (table.shape != Shape::source) return std::string(column);
    if (contains(column, "営業請求")) return Replace(column, "営業請求", table.document);
    return Replace(column, "請求", table.amount);
}

template <class Columns>
void derive(const DocumentTable& table, const Columns& columns, std::size_t keys,
            std::vector<ColumnDefinition>& out) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (table.shape == Shape::history && i == history_position)
            for (std::string_view name : history_columns)
                out.push_back({std::string(name), ColumnType::text});
        const std::string_view name = columns[i].field.column;
        if (table.shape == Shape::source && is_source_key(name)) continue;
        const bool key = i < keys && table.shape != Shape::history;
        const ColumnType type = key                          ? ColumnType::key
                                : is_quoted(columns[i].kind) ? ColumnType::text
                                                             : ColumnType::number;
        out.push_back({renamed(name, table), type});
    }
}

// The codes of the masters, and where documents hold them. A site in a document is a part of a document's
// key: it stands as it is, as all keys and numbers do.
bool folds_case(std::string_view table, std::string_view column) {
    if (!column.ends_with("コード")) return false;
    if (table.starts_with("M") || table == "担当者別操作許可プログラム") return column != "伝票事業所コード";
    return (table.starts_with("T") || table.starts_with("R")) && !column.ends_with("事業所コード");
}

std::vector<TableDefinition> make_tables() {
    std::vector<TableDefinition> tables;
    for (const PlainTable& row : plain_tables) {
        TableDefinition& table =
            tables.emplace_back(TableDefinition{std::string(row.name), row.databases, {}});
        for (std::string_view name : words(row.keys))
            table.columns.push_back({std::string(name), ColumnType::key});
        for (std::string_view name : words(row.texts))
            table.columns.push_back({std::string(name), ColumnType::text});
        for (std::string_view name : words(row.numbers))
            table.columns.push_back({std::string(name), ColumnType::number});
    }
    for (const DocumentTable& row : document_tables) {
        TableDefinition& table =
            tables.emplace_back(TableDefinition{std::string(row.name), main_database, {}});
        if (row.lines)
            derive(row, line_columns, 4, table.columns);
        else
            derive(row, header_columns, 3, table.columns);
        for (std::string_view name : words(row.more))
            table.columns.push_back({std::string(name), ColumnType::text});
    }
    for (TableDefinition& table : tables)
        for (ColumnDefinition& column : table.columns)
            column.folds_case = folds_case(table.name, column.name);
    return tables;
}

std::string create_table(const TableDefinition& table) {
    std::string sql = "CREATE TABLE [" + table.name + "] (", keys;
    for (const ColumnDefinition& column : table.columns) {
        if (&column != &table.columns.front()) sql += ", ";
        sql += "[" + column.name + (column.type == ColumnType::number ? "] NUMERIC" : "] TEXT");
        if (column.folds_case) sql += " COLLATE NOCASE";
        if (column.type != ColumnType::key) continue;
        sql += " NOT NULL";
        keys += (keys.empty() ? "[" : ", [") + column.name + "]";
    }
    return sql + (keys.empty() ? ")" : ", PRIMARY KEY (" + keys + "))");
}

SchemaObject create_index(const Index& index) {
    const std::string table(index.table);
    std::string name = "索引_" + table, columns;
    for (std::string_view column : words(index.columns)) {
        name.append("_").append(column);
        columns.append(columns.empty() ? "[" : ", [").append(column).append("]");
    }
    return {name, table, "CREATE INDEX [" + name + "] ON [" + table + "] (" + columns + ")"};
}

}  // namespace

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> out;
    while (!text.empty()) out.push_back(next_word(text));
    return out;
}

const std::vector<TableDefinition>& schema_tables() {
    static const std::vector<TableDefinition> tables = make_tables();
    return tables;
}

const TableDefinition& schema_table(std::string_view name) {
    for (const TableDefinition& table : schema_tables())
        if (table.name == name) return table;
    throw std::logic_error("no table " + std::string(name));
}

std::vector<RenamedColumn> renamed_columns(std::string_view table) {
    std::vector<RenamedColumn> out;
    const auto add = [&out](const DocumentTable& row, const auto& columns) {
        for (const auto& c : columns)
            if (const std::string_view name = c.field.column; !is_source_key(name))
                out.push_back({renamed(name, row), std::string(name)});
    };
    for (const DocumentTable& row : document_tables) {
        if (row.name != table || row.shape != Shape::source) continue;
        if (row.lines)
            add(row, line_columns);
        else
            add(row, header_columns);
    }
    return out;
}

std::vector<SchemaObject> schema_objects(Database database) {
    std::vector<SchemaObject> objects;
    for (const TableDefinition& table : schema_tables())
        if (table.databases & database) objects.push_back({table.name, table.name, create_table(table)});
    for (const Index& index : indexes)
        if (schema_table(index.table).databases & database) objects.push_back(create_index(index));
    return objects;
}

}  // namespace kalvane::setup
