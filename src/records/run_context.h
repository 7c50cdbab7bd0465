// The run context: the one record through which all parts of the program share their state. It lives from
// process start to process end; there is one thread and no lock. Texts start empty, booleans false,
// numbers 0 unless told. Each group says who sets it and who clears it.
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "base/currency.h"
#include "platform/ado/ado.h"
#include "platform/screen/form.h"

namespace kalvane {

inline constexpr const char* プログラムID = "KalvaneInvoiceEntry";
inline constexpr const char* 業務メニュ = "Kalvane";
inline constexpr const char* 請求番号ID = "16240";
inline constexpr const char* 全社事業所 = "000";  // the head office: the whole company

// What the copy of the record at the start of an event leaves alone: connections and open recordsets.
template <class T>
struct NotCopied : T {
    NotCopied() = default;
    NotCopied(const NotCopied&) : T() {}
    NotCopied& operator=(const NotCopied&) { return *this; }
};

// Site, base date and number of a source document named on the command line.
struct DocumentKey {
    std::string 事業所コード, 番号基準日付, No;
};

// One linked business system; kept, read by no logic here.
struct LinkedSystem {
    std::string 業務名;
    std::int16_t 連携有無区分 = 0;
    std::string 連携DB, 連携DBMW, 連携データソース名, 連携ドライバ名, 連携接続文字列, 連携データベース名,
        連携サーバー名, 連携ユーザーID, 連携パスワード, 連携アプリフォルダ;
    std::int16_t 顧客更新有無区分 = 0, 得意先更新有無区分 = 0, 納品先更新有無区分 = 0, 仕入先更新有無区分 = 0,
                 メーカ更新有無区分 = 0, 対応先更新有無区分 = 0, 商品更新有無区分 = 0, 社員更新有無区分 = 0;
};

struct RunContext {
    // ---- seat and folders: set by 環境定義読込 at start and at each re-opening, never cleared
    std::string ユーザID;                   // logon name
    std::string コンピュータID;             // computer name
    std::int32_t 画面幅 = 0, 画面高さ = 0;  // pixels, by 画面情報取得
    std::string ルートフォルダ, プログラムフォルダ, 共通設定フォルダ, 共通帳票フォルダ, マニュアルフォルダ;
    std::string 共通DBパス;
    std::string 設定フォルダ, 帳票フォルダ;  // only for インストール区分 0 and 1; keep their text otherwise
    std::int16_t 共通DB種別 = 0, 設定DB種別 = 0, 帳票DB種別 = 0;  // 0 none, 1 .accdb, 2 .mdb
    std::string Access実行パス;

    // ---- connections: opened by 環境定義読込, 主DB接続, 設定DB再接続; closed by 終了処理
    NotCopied<ado::Connection> 主接続, 設定接続;
    bool 主接続中 = false, 設定接続中 = false;
    std::string db, dbmw;  // db: "A", "S" or "O"
    std::string プロバイダ名, データベース名, ドライバ名, ユーザーID, パスワード, データソース名, サーバー名,
        接続文字列;
    std::string データベースパス;  // kind "A" only
    std::int16_t インストール区分 = 0, CL更新実行区分 = 0;
    // read from 動作環境定義 and not used further
    std::string バックアップ日付, 運用条件切替日付, バックアップ開始時刻, バックアップフォルダ;
    std::int16_t バックアップ方法 = 0, バックアップ日指定 = 0, 月曜バックアップ = 0, 火曜バックアップ = 0,
                 水曜バックアップ = 0, 木曜バックアップ = 0, 金曜バックアップ = 0, 土曜バックアップ = 0,
                 日曜バックアップ = 0;

    // ---- run and linkage
    double proccounter = 0;  // run history rows so far; 0 by データベース起動, +1 before each row
    std::string 連携元プログラムID;  // emptied and set by 連携受信
    std::string 起動連携情報;        // set by 連携受信 with a row, never cleared
    std::string 終了連携情報;  // reply text; set by 連携応答検索, 営業請求保存, 連携応答
    bool 連携待ち中 = false;   // 連携終了待ち only

    // ---- operator and site
    std::string 運用事業所コード;  // 環境定義読込, 運用事業所更新
    std::string 事業所コード;  // site of the document; 環境定義読込, command line, form load, loaders
    std::int16_t 事業所件数 = 0;                 // sites other than "000"; 基本情報読込
    std::string 起動担当者コード, 起動担当者名;  // 起動担当者読込, 担当者情報読込, sign-on box
    std::string 担当者事業所コード, 担当者部門コード, 担当者セクションコード, 担当者役職コード,
        担当者ログインID;
    std::int16_t 担当者社員区分 = 0, アクセス権限 = 0;
    std::array<std::string, 10> 処理分類操作許可;  // 処理分類0操作許可 .. 処理分類9操作許可; value 0 allows
    std::string 操作許可, 入力許可, 修正許可, 削除許可, 印刷許可, プレビュ許可, テキスト出力許可,
        イメージ出力許可;
    bool 暗証番号確認済 = false;                   // lives for one 操作権限確認
    std::int16_t 暗証番号有無 = 0;                 // 1: operators sign on with a PIN; 基本情報読込
    std::string 本日年, 本日月, 本日日, 本日日付;  // 利用者情報読込, once

    // ---- company, row 0001 of Mユーザ; set by 基本情報読込, never re-read
    std::string ID, 名称, 郵便番号, 住所A, 住所B, 住所C, 代表者名, 電話, FAX, HOMEPAGE, EMAIL, 会社ロゴfile,
        社印file, 銀行口座A, 銀行口座B, 銀行口座C, 銀行口座D;
    std::int16_t 決算月 = 0, 決算日 = 0, 締日区分 = 0, 締日 = 0, 決済方法 = 0, 決済月 = 0, 決済日 = 0,
                 手形サイト = 0;
    通貨 現金決済金額;
    std::int16_t 売上金額丸め方法 = 0, 仕入金額丸め方法 = 0, 在庫評価方法 = 0;  // 丸め方法: tenths added
    std::int16_t 売上数量少数以下桁数 = 0, 売上単価少数以下桁数 = 0, 仕入数量少数以下桁数 = 0,
                 仕入単価少数以下桁数 = 0, 在庫数量少数以下桁数 = 0, 在庫単価少数以下桁数 = 0,
                 重量少数以下桁数 = 0;
    std::int16_t 得意先単価自動更新区分 = 0, 納品先単価自動更新区分 = 0, 仕入先単価自動更新区分 = 0;
    std::string 写真フォルダ, ドキュメントフォルダ;
    // the seven that a site other than "000" may replace
    std::string 総合振込ファイル, 基本読込フォルダ, 帳票イメージフォルダ, その他読込ファイル,
        本支店連携フォルダ, テキスト出力フォルダ, BACKUPフォルダ;
    std::int16_t 明細保存月数 = 0, 統計保存年数 = 0, 整理実施可能日自 = 0, 整理実施可能日至 = 0,
                 整理実施可能時刻 = 0;
    std::string 明細整理実行日, 統計整理実行日;
    std::int16_t 伝票番号管理区分 = 0;  // 0 numbers without a site, else by site
    std::string 特権暗証番号;           // as stored
    std::int16_t 更新実行区分 = 0;      // 0: the databases are closed and opened after a save
    std::string システム特権暗証番号;   // decoded
    std::string 登録日付, 更新日付;
    // decimals by kind of document, from the settings above; those of 請求 and 仕入 write and show the
    // invoice
    std::int16_t 見積数量桁数 = 0, 見積単価桁数 = 0, 注文数量桁数 = 0, 注文単価桁数 = 0, 請求数量桁数 = 0,
                 請求単価桁数 = 0, 発注数量桁数 = 0, 発注単価桁数 = 0, 仕入数量桁数 = 0, 仕入単価桁数 = 0,
                 在庫数量桁数 = 0, 在庫単価桁数 = 0, 重量桁数 = 0;

    // ---- site, row of M事業所; set by 事業所情報読込
    std::string 事業所名称, 事業所郵便番号, 事業所住所A, 事業所住所B, 事業所住所C, 事業所代表者名, 事業所電話,
        事業所FAX, 登録番号, 事業所HOMEPAGE, 事業所EMAIL, 事業所銀行口座A, 事業所銀行口座B, 事業所銀行口座C,
        事業所銀行口座D, 事業所総合振込ファイル, 事業所基本読込フォルダ, 事業所帳票イメージフォルダ,
        事業所その他読込ファイル, 事業所本支店連携フォルダ, 事業所テキスト出力フォルダ, 事業所BACKUPフォルダ,
        地区コード;
    std::int16_t 事業所暗証番号有無 = 0, 事業所更新実行区分 = 0;
    std::string 事業所特権暗証番号;  // decoded
    // linked business systems; 他業務連携読込 fills slots 0 to 4
    std::array<LinkedSystem, 10> 他業務連携;
    std::int16_t 他業務連携件数 = 0;

    // ---- document on the screen
    std::string 番号基準日付, 営業請求No;  // with 事業所コード the key
    DocumentKey 引用営業見積キー, 引用顧客注文キー, 引用営業納品キー, 引用営業請求キー;  // command line
    bool 新規入力中 = false;        // true: no row in T営業請求 yet
    bool 入力変更あり = false;      // the operator changed the document
    bool 引数起動 = false;          // the command line named a document
    bool 引用起動 = false;          // … with "00000000" in date and number
    std::string 起動読込失敗;       // why the document of the command line was not read; shown once, at start
    bool 処理中 = false;            // a routine writes controls; the field handlers ignore the events
    std::int16_t 印刷確認結果 = 2;  // msg印刷確認: 0 save and print, 1 save, 2 no

    // ---- screen position
    std::int16_t 最終行 = -1;             // index of the last used line, -1 without lines
    std::int16_t 先頭行 = 0;              // line shown in screen row 0
    std::int16_t 現在画面行 = 0;          // screen row 0 to 9 that has the focus
    std::int16_t 現在行 = 0;              // 先頭行 + 現在画面行
    bool スクロール中 = false;            // 行スクロール変更 gives the focus back: it makes no line
    bool 仕入先表示 = false;              // purchase page shows suppliers in place of product names
    std::int16_t 連番タイプ = 0;          // numbering style 0, 1, 2
    std::string 案内メッセージ;           // look-up result text for お知らせ
    Control* 取得コントロール = nullptr;  // last control that got the focus
    Control* 離脱コントロール = nullptr;  // last control that lost it
    Control* 先頭コントロール = nullptr;  // first entry field of the head
    Form* 主画面 = nullptr;               // the entry screen, kept by 起動処理

    // ---- exchange with the list windows
    std::string 選択戻り値;
    Control* 一覧戻り先 = nullptr;
    Control* 一覧次項目 = nullptr;
    Form* 一覧親画面 = nullptr;
    bool 一覧親画面有 = false;

    // ---- open recordsets between an existence check and its reader
    struct Recordsets {
        ado::Recordset 得意先, 得意先御担当者, 担当者, 部門, セクション, 納品先, 商品, 仕入先;
        ado::Recordset 営業請求, 営業見積, 顧客注文, 営業納品, 参照営業請求;
    };
    NotCopied<Recordsets> recordsets;
};

inline RunContext 実行環境;

}  // namespace kalvane
