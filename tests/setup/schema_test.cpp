#include <algorithm>

#include "installation.h"
#include "invoice/columns.h"

namespace kalvane {
namespace {

using test::demo;

// Statements of the program and of its list windows, as they are sent, with values put in. What they name
// must stand in the database that they are sent to.
struct Sent {
    const char* name;
    const char* sql;
    bool config = false;
};

constexpr Sent statements[] = {
    // start and rights
    {"database_definition", "SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'", true},
    {"database_definition_columns",
     "SELECT 情報種類, db, dbmw, ドライバ名, データベース名, サーバー名, 接続文字列, ユーザーID, パスワード, "
     "プロバイダ名, データソース名 FROM データベース定義",
     true},
    {"settings_columns",
     "SELECT 運用事業所コード, 起動担当者コード, インストール区分, CL更新実行区分, バックアップ日付, "
     "運用条件切替日付, バックアップ方法, バックアップ日指定, 月曜バックアップ, 火曜バックアップ, "
     "水曜バックアップ, 木曜バックアップ, 金曜バックアップ, 土曜バックアップ, 日曜バックアップ, "
     "バックアップ開始時刻, バックアップフォルダ FROM 動作環境定義 WHERE 動作環境定義ID = '001'",
     true},
    {"condition_names",
     "UPDATE Kalvane SET 条件項目名A = '事業所コード', 条件項目名B = '番号基準日付', 条件項目名C = "
     "'営業請求No', "
     "条件項目名D = '', 条件項目名E = '', 条件項目名F = '', 条件項目名G = '', 条件項目名H = '', 条件項目名I "
     "= '', "
     "条件項目名J = '', 条件項目名K = '', 条件項目名L = '', 条件項目名M = '', 条件項目名N = '', 条件項目名O "
     "= '', "
     "条件項目名P = '', 条件項目名Q = '', 条件項目名R = '', 条件項目名S = '', 条件項目名T = '', 条件項目名U "
     "= '', "
     "条件項目名V = '', 条件項目名W = '', 条件項目名X = '', 条件項目名Y = '', 条件項目名Z = '' "
     "WHERE プログラムID = 'KalvaneInvoiceEntry'",
     true},
    {"menu_class", "SELECT 処理分類 FROM Kalvane WHERE プログラムID = 'KalvaneInvoicePrint'", true},
    {"operator_columns",
     "SELECT 氏名, 事業所コード, 部門コード, セクションコード, 役職コード, 社員区分, ログインID, 暗証番号, "
     "アクセス権限, 処理分類0操作許可, 処理分類1操作許可, 処理分類2操作許可, 処理分類3操作許可, "
     "処理分類4操作許可, "
     "処理分類5操作許可, 処理分類6操作許可, 処理分類7操作許可, 処理分類8操作許可, 処理分類9操作許可, "
     "操作許可, "
     "入力許可, 修正許可, 削除許可, 印刷許可, プレビュ許可, テキスト出力許可, イメージ出力許可 FROM M担当者 "
     "WHERE "
     "M担当者.ログインID = 'u' AND (M担当者.在籍区分 = '0' OR (M担当者.在籍区分 = '1' AND M担当者.退社日付 "
     "<>'' AND "
     "M担当者.退社日付 > '20240101')) AND (M担当者.事業所コード = '001' OR M担当者.事業所コード = '000')"},
    {"operator_override",
     "SELECT 操作許可, 入力許可, 修正許可, 削除許可, 印刷許可, プレビュ許可, テキスト出力許可, "
     "イメージ出力許可 FROM "
     "担当者別操作許可プログラム WHERE 担当者別操作許可プログラム.担当者コード = '00001' AND "
     "担当者別操作許可プログラム.業務メニュ = 'Kalvane' AND 担当者別操作許可プログラム.プログラムID = 'P'"},
    // company, sites, linked systems
    {"company",
     "SELECT ID, 郵便番号, 住所A, 住所B, 住所C, 代表者名, 電話, FAX, HOMEPAGE, EMAIL, 会社ロゴfile, "
     "社印file, 銀行口座A, "
     "銀行口座B, 銀行口座C, 銀行口座D, 名称, 決算月, 決算日, 締日区分, 締日, 決済方法, 決済月, 決済日, "
     "手形サイト, "
     "現金決済金額, 売上金額丸め方法, 仕入金額丸め方法, 在庫評価方法, 売上数量少数以下桁数, "
     "売上単価少数以下桁数, "
     "仕入数量少数以下桁数, 仕入単価少数以下桁数, 在庫数量少数以下桁数, 在庫単価少数以下桁数, "
     "重量少数以下桁数, "
     "得意先単価自動更新区分, 納品先単価自動更新区分, 仕入先単価自動更新区分, 写真フォルダ, "
     "ドキュメントフォルダ, "
     "総合振込ファイル, 基本読込フォルダ, 帳票イメージフォルダ, その他読込ファイル, 本支店連携フォルダ, "
     "テキスト出力フォルダ, BACKUPフォルダ, 明細保存月数, 統計保存年数, 整理実施可能日自, 整理実施可能日至, "
     "整理実施可能時刻, 明細整理実行日, 統計整理実行日, 伝票番号管理区分, 暗証番号有無, 特権暗証番号, "
     "更新実行区分, "
     "システム特権暗証番号, 登録日付, 更新日付 FROM Mユーザ WHERE ID = '0001'"},
    {"site",
     "SELECT コード, 名称, 郵便番号, 住所A, 住所B, 住所C, 代表者名, 電話, FAX, 登録番号, HOMEPAGE, EMAIL, "
     "銀行口座A, "
     "銀行口座B, 銀行口座C, 銀行口座D, 総合振込ファイル, 基本読込フォルダ, 帳票イメージフォルダ, "
     "その他読込ファイル, "
     "本支店連携フォルダ, テキスト出力フォルダ, BACKUPフォルダ, 地区コード, 暗証番号有無, 特権暗証番号, "
     "更新実行区分 "
     "FROM M事業所 WHERE コード = '000'"},
    {"linked_system",
     "SELECT TOP 1 業務名, 連携有無区分, 連携DB, 連携DBMW, 連携データソース名, 連携ドライバ名, "
     "連携接続文字列, "
     "連携データベース名, 連携サーバー名, 連携ユーザーID, 連携パスワード, 連携アプリフォルダ, "
     "顧客更新有無区分, "
     "得意先更新有無区分, 納品先更新有無区分, 仕入先更新有無区分, メーカ更新有無区分, 対応先更新有無区分, "
     "商品更新有無区分, 社員更新有無区分 FROM M他業務連携 WHERE コード = '003'"},
    // run history, usage, linkage, clipboard, queue
    {"history",
     "INSERT INTO プログラム稼動履歴 "
     "(実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,"
     "ユーザID)VALUES ('20240101 000000', 'P', '000000000001', '開始 ', '000', '00001', 'u')",
     true},
    {"usage",
     "INSERT INTO 使用状況 (コンピュータID,ユーザID,プログラムID,開始日時,終了日時)VALUES ('c', 'u', 'P', "
     "'20240101 000000', '')"},
    {"usage_cleaning", "DELETE FROM 使用状況 WHERE 終了日時 < '20231201' AND 終了日時 <> ''"},
    {"link_request",
     "INSERT INTO プログラム連携情報 "
     "(発信日時,発信プログラムID,受信プログラムID,受信期限,連携区分,起動連携情報,"
     "終了連携情報,運用事業所コード,起動担当者コード,ユーザID)VALUES ('20240101 000000', 'P', 'Q', "
     "'20240101 000000', '00', 'x', '', '000', '00001', 'u')",
     true},
    {"link_reply",
     "SELECT * FROM プログラム連携情報 WHERE 発信日時 >= '2' AND 発信プログラムID = 'P' AND 受信プログラムID "
     "= 'Q' AND "
     "起動連携情報 = 'x' AND 連携区分 = '99'",
     true},
    {"clipboard",
     "INSERT INTO プログラムクリップボード明細 (貼付日時,貼付プログラムID,貼付連番,貼付情報区分,伝票番号ID,"
     "伝票事業所コード,伝票番号基準日付,伝票No,伝票固有行No,伝票付加情報,基本情報区分,基本情報コード,"
     "基本情報明細コード,基本付加情報,運用事業所コード,起動担当者コード,ユーザID)VALUES ('20240101 000000', "
     "'P', '001', "
     "'1', '16240', '000', '99999999', '00000001', '001', '', '', '', '', '', '000', '00001', 'u')",
     true},
    {"clipboard_head", "DELETE FROM プログラムクリップボード WHERE 貼付日時 <= '20240101 000000'", true},
    {"queue_main",
     "INSERT INTO [未集計情報] "
     "([事業所コード],[番号ID],[番号基準日付],[履歴No],[赤黒区分],[伝票No],[追加キー項目],"
     "[データフラグ],[登録情報区分],[予備項目]) VALUES "
     "('000','16240','99999999','00000001','1','00000001','','0','0','u')"},
    {"queue_config",
     "INSERT INTO [未集計情報] "
     "([事業所コード],[番号ID],[番号基準日付],[履歴No],[赤黒区分],[伝票No],[追加キー項目],"
     "[データフラグ],[登録情報区分],[予備項目]) VALUES "
     "('000','16240','99999999','00000001','1','00000001','','0','0','u')",
     true},
    // numbers and tax
    {"tax_rate",
     "SELECT G消費税.* FROM G消費税 WHERE G消費税.施行日 <= '20240101' ORDER BY G消費税.施行日 DESC"},
    {"number_update", "UPDATE A番号情報 SET  連番 = '00000001' WHERE A番号情報.番号ID = '16210'"},
    {"number_program", "SELECT 更新プログラム FROM A番号情報 WHERE 番号ID = '16240'"},
    {"number_by_day",
     "INSERT INTO [A期日別番号情報] ([番号ID],[期日],[連番],[履歴連番]) VALUES "
     "('16210','20240131','00000000','00000000')"},
    {"number_by_site",
     "INSERT INTO [A事業所別番号情報] ([事業所コード],[番号ID],[連番],[履歴連番]) VALUES "
     "('001','16210','00000000','00000000')"},
    {"number_by_site_and_day",
     "INSERT INTO [A事業所別期日別番号情報] ([事業所コード],[番号ID],[期日],[連番],[履歴連番]) VALUES "
     "('001','16210','20240131','00000000','00000000')"},
    {"browse_log",
     "INSERT INTO [T閲覧] "
     "([事業所コード],[番号基準日付],[閲覧No],[閲覧日付],[閲覧時刻],[担当者コード],[担当者名],"
     "[閲覧情報],[伝票事業所コード],[伝票番号基準日付],[伝票No],[キー項目],[閲覧区分],[閲覧メモ],[承認日付],"
     "[承認者コード],[承認区分],[ユーザID],[登録日付],[更新日付]) VALUES "
     "('000','99999999','00000001','20240101',"
     "'00:00:00','00001','n','P','000','99999999','00000001','','0','','','','0','cu','20240101 000000','')"},
    // documents
    {"invoice",
     "SELECT TOP 1 T営業請求.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS "
     "セクション名 FROM "
     "Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T営業請求 ON M担当者.コード = "
     "T営業請求.担当者コード) "
     "ON M部門.コード = T営業請求.部門コード) ON Mセクション.コード = T営業請求.セクションコード WHERE "
     "T営業請求.営業請求No = '00000001' AND T営業請求.事業所コード = '000' AND T営業請求.番号基準日付 = "
     "'99999999'"},
    {"quotation",
     "SELECT TOP 1 T営業見積.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS "
     "セクション名 FROM "
     "Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T営業見積 ON M担当者.コード = "
     "T営業見積.担当者コード) "
     "ON M部門.コード = T営業見積.部門コード) ON Mセクション.コード = T営業見積.セクションコード WHERE "
     "T営業見積.営業見積No = '00000001' AND T営業見積.事業所コード = '000' AND T営業見積.番号基準日付 = "
     "'99999999'"},
    {"quotation_columns",
     "SELECT 事業所コード, 番号基準日付, 営業見積No, 営業見積日付, 得意先対応先区分, 得意先コード, "
     "得意先名称A, 得意先名称B, "
     "得意先御担当者コード, 御担当者名, 得意先消費税区分, 得意先消費税算出区分, 得意先消費税丸め方法, "
     "得意先消費税丸め桁位置, 得意先消費税端数調整区分, 得意先名称入力区分, 担当者コード, 部門コード, "
     "セクションコード, "
     "納品先対応先区分, 納品先コード, 納品先名称A, 納品先名称B, 納品先名称入力区分, タイトル, "
     "消費税表示区分, "
     "合計表示区分, 見積伝票備考A, 見積伝票備考B, 見積金額合計, 税抜見積金額合計, 見積消費税合計, "
     "税込見積金額合計, "
     "税抜仕入金額合計, 仕入消費税合計, 税込仕入金額合計 FROM T営業見積"},
    {"order_columns",
     "SELECT 顧客注文No, 顧客注文日付, 得意先対応先区分, 納品先対応先区分, 納品先コード, 注文伝票備考A, "
     "注文伝票備考B, "
     "注文金額合計, 税抜注文金額合計, 注文消費税合計, 税込注文金額合計, 税抜仕入金額合計 FROM T顧客注文"},
    {"delivery_columns",
     "SELECT 営業納品No, 営業納品日付, 得意先コード, 納品先コード, 納品伝票備考A, 納品伝票備考B, "
     "納品金額合計, "
     "税抜納品金額合計, 納品消費税合計, 税込納品金額合計, 税込仕入金額合計 FROM T営業納品"},
    {"quotation_lines",
     "SELECT 行区分, 商品コード, 商品名, 見積数量, 見積単位, 見積単価, 見積金額, 見積消費税, 売上課税区分, "
     "売上消費税区分, 仕入先対応先区分, 仕入先コード, 仕入先名称A, 仕入数量, 仕入単位, 仕入単価, 仕入金額, "
     "仕入消費税, "
     "仕入課税区分, 仕入消費税区分, 計区分, 商品売上課税区分, 商品売上消費税区分, 商品仕入課税区分, "
     "商品仕入消費税区分, 商品税抜販売単価, 商品税抜仕入単価, 商品税込販売単価, 商品税込仕入単価, "
     "商品名称入力区分, "
     "仕入先消費税区分, 仕入先消費税算出区分, 仕入先消費税丸め方法, 仕入先消費税丸め桁位置, "
     "仕入先消費税端数調整区分, 仕入先名称入力区分 FROM T営業見積明細 WHERE 事業所コード = '' AND "
     "番号基準日付 = '' AND "
     "営業見積No = '' ORDER BY T営業見積明細.営業見積行No"},
    {"order_lines",
     "SELECT 注文数量, 注文単位, 注文単価, 注文金額, 注文消費税, 仕入先対応先区分 FROM T顧客注文明細 WHERE "
     "顧客注文No = '' "
     "ORDER BY T顧客注文明細.顧客注文行No"},
    {"delivery_lines",
     "SELECT 納品数量, 納品単位, 納品単価, 納品金額, 納品消費税 FROM T営業納品明細 WHERE 営業納品No = '' "
     "ORDER BY "
     "T営業納品明細.営業納品行No"},
    {"referred_to",
     "SELECT TOP 1 * FROM T営業請求 WHERE 参照営業請求事業所コード = '' AND 参照営業請求番号基準日付 = '' "
     "AND "
     "参照営業請求No = ''"},
    // masters
    {"customer",
     "SELECT M得意先.*, M担当者.氏名 AS 担当者名, M担当者.部門コード, M担当者.セクションコード, M部門.名称 "
     "AS 部門名, "
     "Mセクション.名称 AS セクション名 FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 INNER JOIN "
     "M得意先 ON "
     "M担当者.コード = M得意先.担当者コード) ON M部門.コード = M担当者.部門コード) ON Mセクション.コード = "
     "M担当者.セクションコード WHERE M得意先.コード = '000001' AND M得意先.取引状況区分 <> '3'"},
    {"customer_columns",
     "SELECT コード, 名称A, 名称B, 御担当者名, 担当者コード, 消費税区分, 消費税算出区分, 消費税丸め方法, "
     "消費税丸め桁位置, 消費税端数調整区分, 名称入力区分 FROM M得意先"},
    {"contact",
     "SELECT M得意先御担当者.*, 氏名 FROM M得意先御担当者 WHERE M得意先御担当者.得意先コード = '000001' AND "
     "M得意先御担当者.御担当者コード = '00001'"},
    {"destination",
     "SELECT M納品先.*, 名称A, 名称B, 名称入力区分, M担当者.氏名 AS 担当者名 FROM M担当者 INNER JOIN M納品先 "
     "ON "
     "M担当者.コード = M納品先.担当者コード WHERE M納品先.コード = '000001' AND M納品先.取引状況区分 <> '3'"},
    {"product",
     "SELECT コード, 名称A, 名称B, 単位, 売上課税区分, 売上消費税区分, 仕入課税区分, 仕入消費税区分, "
     "税抜販売単価, "
     "税込販売単価, 税抜仕入単価, 税込仕入単価, 仕入先コード FROM M商品 WHERE M商品.コード = 'P0001' AND "
     "M商品.取扱状況区分 <> '3'"},
    {"supplier",
     "SELECT コード, 名称A, 消費税区分, 消費税算出区分, 消費税丸め方法, 消費税丸め桁位置, "
     "消費税端数調整区分, "
     "名称入力区分 FROM M仕入先 WHERE M仕入先.コード = '000001' AND M仕入先.取引状況区分 <> '3'"},
    // list windows
    {"list_customer",
     "SELECT TOP 1000 M得意先.コード, M得意先.略称, M得意先.カナ, M得意先.電話, M得意先.郵便番号, "
     "M得意先.住所A, "
     "M得意先.住所B, M担当者.氏名 AS 担当者名 FROM M担当者 INNER JOIN M得意先 ON M得意先.担当者コード = "
     "M担当者.コード "
     "WHERE M担当者.事業所コード = '001' AND M得意先.住所C LIKE '%%' AND (M得意先.電話番号 LIKE '%1%' OR "
     "EXISTS (SELECT * "
     "FROM M得意先御担当者 WHERE 得意先コード = M得意先.コード AND 電話番号 LIKE '%1%')) AND "
     "M得意先.取引状況区分 = '0' "
     "ORDER BY M得意先.電話"},
    {"list_destination",
     "SELECT TOP 1000 M納品先.コード, M納品先.略称, M納品先.カナ, M納品先.電話, M納品先.郵便番号, "
     "M納品先.住所A, "
     "M納品先.住所B, M担当者.氏名 AS 担当者名 FROM M担当者 INNER JOIN M納品先 ON M納品先.担当者コード = "
     "M担当者.コード "
     "WHERE M納品先.住所C LIKE '%%' AND M納品先.名称B LIKE '%%' AND M納品先.電話番号 LIKE '%1%'"},
    {"list_supplier",
     "SELECT TOP 1000 M仕入先.コード, M仕入先.略称, M仕入先.カナ, M仕入先.電話, M仕入先.郵便番号, "
     "M仕入先.住所A, "
     "M仕入先.住所B, M担当者.氏名 AS 担当者名 FROM M担当者 INNER JOIN M仕入先 ON M仕入先.担当者コード = "
     "M担当者.コード "
     "WHERE M仕入先.住所C LIKE '%%' AND M仕入先.名称B LIKE '%%' AND M仕入先.電話番号 LIKE '%1%'"},
    {"list_maker",
     "SELECT TOP 1000 Mメーカ.コード, Mメーカ.略称, Mメーカ.カナ, Mメーカ.電話, Mメーカ.郵便番号, "
     "Mメーカ.住所A, "
     "Mメーカ.住所B, M担当者.氏名 AS 担当者名 FROM M担当者 INNER JOIN Mメーカ ON Mメーカ.担当者コード = "
     "M担当者.コード "
     "WHERE Mメーカ.住所C LIKE '%%' AND Mメーカ.名称A LIKE '%%' AND Mメーカ.名称B LIKE '%%' AND "
     "Mメーカ.電話番号 LIKE "
     "'%1%' AND Mメーカ.取引状況区分 = '0'"},
    {"list_prospect",
     "SELECT TOP 1000 M対応先.コード, M対応先.略称, M対応先.カナ, M対応先.電話, M対応先.郵便番号, "
     "M対応先.住所A, "
     "M対応先.住所B, M担当者.氏名 AS 担当者名 FROM M担当者 INNER JOIN M対応先 ON M対応先.担当者コード = "
     "M担当者.コード "
     "WHERE M対応先.住所C LIKE '%%' AND M対応先.名称B LIKE '%%' AND M対応先.電話番号 LIKE '%1%' AND "
     "M対応先.取引状況区分 = "
     "'0' ORDER BY M対応先.得意先コード DESC,M対応先.仕入先コード DESC,M対応先.名称A"},
    {"list_staff",
     "SELECT TOP 1000 M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS "
     "部門名,Mセクション.名称 AS "
     "セクション名 FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON "
     "M事業所.コード = "
     "M担当者.事業所コード) ON M部門.コード = M担当者.部門コード) ON Mセクション.コード = "
     "M担当者.セクションコード WHERE "
     "M担当者.カナ LIKE '%%' AND M担当者.在籍区分 = '0' AND M担当者.社員区分 = '0' ORDER BY M担当者.カナ"},
    {"list_contact",
     "SELECT TOP 1000 *, カナ, 電話, EMAIL FROM M得意先御担当者 WHERE (M得意先御担当者.得意先コード = "
     "'000001') ORDER BY "
     "M得意先御担当者.御担当者コード"},
    {"list_product",
     "SELECT TOP 1000 M商品.コード, M商品.名称A, M商品.名称B, M商品.カナ, M商品.商品分類コード, "
     "M商品.品区分, "
     "M商品.税抜販売定価, M商品.税抜販売単価, M商品.税抜仕入単価, M商品分類.名称 AS 商品分類名, K品区分.名称 "
     "AS 品区分名 "
     "FROM M商品分類 RIGHT JOIN (K品区分 INNER JOIN M商品 ON K品区分.区分 = M商品.品区分) ON "
     "M商品分類.コード = "
     "M商品.商品分類コード WHERE (M商品.仕入先コード = 'x' OR M商品.仕入先コード = '') AND "
     "(M商品.メーカコード = 'x'  OR "
     "M商品.メーカコード = '') AND (M商品.得意先コード = 'x' OR M商品.得意先コード = '') AND M商品.品区分 = "
     "'0' AND "
     "M商品.在庫管理区分 = '1' AND M商品.取扱状況区分 = '0' ORDER BY M商品.コード"},
    {"list_item",
     "SELECT TOP 1000 T営業請求明細.事業所コード,T営業請求明細.番号基準日付,T営業請求明細.営業請求No,"
     "T営業請求明細.営業請求固有行No,T営業請求明細.営業請求日付,T営業請求明細.商品名,T営業請求明細.請求単価,"
     "T営業請求明細.請求単位,T営業請求.得意先名称A FROM T営業請求 INNER JOIN T営業請求明細 ON "
     "T営業請求.事業所コード = "
     "T営業請求明細.事業所コード AND T営業請求.番号基準日付 = T営業請求明細.番号基準日付 AND "
     "T営業請求.営業請求No = "
     "T営業請求明細.営業請求No WHERE T営業請求明細.得意先コード = 'x' AND T営業請求明細.行区分 = '1'"},
    {"list_class",
     "SELECT コード,名称 FROM M商品分類 WHERE M商品分類.使用状況区分 = '0' ORDER BY M商品分類.コード"},
    {"list_department", "SELECT コード,名称 FROM M部門 WHERE M部門.稼動状況区分 = '0' ORDER BY M部門.コード"},
    {"list_section",
     "SELECT コード,名称 FROM Mセクション WHERE Mセクション.稼動状況区分 = '0' ORDER BY Mセクション.コード"},
    // attached documents
    {"attachment",
     "INSERT INTO M付属書類 "
     "(情報名,情報識別ID,SEQNo,書類名,タイトル,伝票番号ID,伝票事業所コード,伝票番号基準日付,伝票No,"
     "伝票日付,対応先コード,得意先コード,納品先コード,仕入先コード,銀行コード,科目コード,社員コード,"
     "担当者コード,"
     "部門コード,セクションコード,商品コード,メーカコード,対象金額,ユーザID,登録日付) VALUES "
     "('P','i','001','f','t','16240',"
     "'000','99999999','00000001','20240101','','','','','','','','','','','','',0,'u','20240101 000000')"},
};

TEST(Schema, TakesTheStatementsOfTheProgram) {
    ado::Connection main, config;
    setup::open_database(main, demo().root, setup::main_file, ado::Access::program);
    setup::open_database(config, demo().root, setup::config_file, ado::Access::program);
    for (const Sent& sent : statements) {
        ado::Connection& connection = sent.config ? config : main;
        if (std::string_view(sent.sql).starts_with("SELECT"))
            EXPECT_NO_THROW(test::rows_of(connection, sent.sql)) << sent.name;
        else
            EXPECT_NO_THROW(connection.Execute(sent.sql)) << sent.name;
    }
}

// ---- the invoice's column tables

template <class Columns>
void expect_columns(const char* table, const Columns& columns) {
    const auto& definition = setup::schema_table(table).columns;
    for (const auto& column : columns) {
        const auto at = std::find_if(definition.begin(), definition.end(),
                                     [&column](const auto& d) { return d.name == column.name; });
        ASSERT_NE(at, definition.end()) << table << " " << column.name;
        // bare numbers need a numeric column, quoted values a text one
        EXPECT_EQ(at->type == setup::ColumnType::number, !is_quoted(column.kind))
            << table << " " << column.name;
    }
}

TEST(Schema, HoldsTheInvoiceColumns) {
    for (const char* table : {"T営業請求", "R営業請求"}) expect_columns(table, header_columns);
    for (const char* table : {"T営業請求明細", "R営業請求明細"}) expect_columns(table, line_columns);
    EXPECT_EQ(setup::schema_table("T営業請求").columns.size(), 61u);
    EXPECT_EQ(setup::schema_table("T営業請求明細").columns.size(), 61u);
    EXPECT_EQ(setup::schema_table("R営業請求").columns.size(), 63u);
    EXPECT_EQ(setup::schema_table("R営業請求明細").columns.size(), 63u);
}

std::string keys_of(const char* table, std::string_view file = setup::main_file) {
    return demo().rows(
        "SELECT name FROM pragma_table_info('" + std::string(table) + "') WHERE pk > 0 ORDER BY pk", file,
        ado::Access::owner);
}

TEST(Schema, PrimaryKeys) {
    const std::pair<const char*, const char*> keys[] = {
        {"T営業請求", "事業所コード/番号基準日付/営業請求No"},
        {"T営業請求明細", "事業所コード/番号基準日付/営業請求No/営業請求固有行No"},
        {"R営業請求", "事業所コード/番号基準日付/営業請求履歴No/赤黒区分/営業請求No"},
        {"R営業請求明細", "事業所コード/番号基準日付/営業請求履歴No/赤黒区分/営業請求No/営業請求固有行No"},
        {"T営業見積明細", "事業所コード/番号基準日付/営業見積No/営業見積固有行No"},
        {"T顧客注文", "事業所コード/番号基準日付/顧客注文No"},
        {"M得意先御担当者", "得意先コード/御担当者コード"},
        {"M付属書類", "情報名/情報識別ID/SEQNo"},
        {"T閲覧", "事業所コード/番号基準日付/閲覧No"},
        {"G消費税", "施行日"},
        {"未集計情報", ""},
        {"使用状況", ""},
    };
    for (const auto& [table, key] : keys) EXPECT_EQ(keys_of(table), key) << table;
    EXPECT_EQ(keys_of("プログラム稼動履歴", setup::config_file), "");
}

TEST(Schema, OnlyKeysAreNotNullAndNothingHasADefault) {
    for (std::string_view file : {setup::main_file, setup::config_file})
        EXPECT_EQ(
            demo().rows("SELECT t.name, c.name FROM sqlite_master AS t, pragma_table_info(t.name) AS c WHERE "
                        "t.type = 'table' AND (c.\"notnull\" <> (c.pk > 0) OR c.dflt_value IS NOT NULL OR "
                        "c.type NOT IN ('TEXT', 'NUMERIC'))",
                        file, ado::Access::owner),
            "");
}

// A number that is taken is refused by the key.
TEST(Schema, AKeyStandsOnce) {
    ado::Connection main;
    const test::Installation installation(setup::Content::empty);
    setup::open_database(main, installation.root, setup::main_file, ado::Access::program);
    const std::string insert =
        "INSERT INTO [T営業請求] ([事業所コード],[番号基準日付],[営業請求No]) VALUES "
        "('000','99999999','00000001')";
    main.Execute(insert);
    EXPECT_THROW(main.Execute(insert), ado::Error);
    EXPECT_THROW(
        main.Execute("INSERT INTO [T営業請求] ([事業所コード],[番号基準日付]) VALUES ('000','99999999')"),
        ado::Error);
}

// ---- indexes

struct Plan {
    const char* name;
    const char* sql;
    const char* by;  // what the index is asked for
};

constexpr Plan plans[] = {
    {"rate", "SELECT G消費税.* FROM G消費税 WHERE G消費税.施行日 <= 'd' ORDER BY G消費税.施行日 DESC",
     "(施行日<?)"},
    {"list_all_sites",
     "SELECT * FROM T営業請求 WHERE (T営業請求.営業請求日付 >= 'd') ORDER BY T営業請求.営業請求日付 DESC, "
     "T営業請求.営業請求No DESC LIMIT 1000",
     "(営業請求日付>?)"},
    {"list_one_site",
     "SELECT * FROM T営業請求 WHERE T営業請求.事業所コード = '001' AND T営業請求.営業請求日付 >= 'd' ORDER "
     "BY "
     "T営業請求.営業請求日付 DESC, T営業請求.営業請求No DESC LIMIT 1000",
     "(事業所コード=? AND 営業請求日付>?)"},
    {"list_customer",
     "SELECT * FROM T営業請求 WHERE T営業請求.得意先コード = 'c' ORDER BY T営業請求.営業請求日付 DESC, "
     "T営業請求.営業請求No DESC LIMIT 1000",
     "(得意先コード=?)"},
    {"list_destination",
     "SELECT * FROM T営業請求 WHERE T営業請求.納品先コード = 'c' ORDER BY T営業請求.営業請求日付 DESC, "
     "T営業請求.営業請求No DESC LIMIT 1000",
     "(納品先コード=?)"},
    {"list_number",
     "SELECT * FROM T営業請求 WHERE T営業請求.営業請求No >= '5' ORDER BY T営業請求.営業請求No LIMIT 1000",
     "(営業請求No>?)"},
    {"reference",
     "SELECT * FROM T営業請求 WHERE 参照営業請求事業所コード = 'a' AND 参照営業請求番号基準日付 = 'b' AND "
     "参照営業請求No = "
     "'c' LIMIT 1",
     "(参照営業請求事業所コード=? AND 参照営業請求番号基準日付=? AND 参照営業請求No=?)"},
    {"history_number",
     "SELECT 営業請求No FROM R営業請求 WHERE 事業所コード = 'a' AND 番号基準日付 = 'b' AND 営業請求履歴No = "
     "'c' LIMIT 1",
     "(事業所コード=? AND 番号基準日付=? AND 営業請求履歴No=?)"},
    {"titles",
     "SELECT DISTINCT T営業請求.タイトル FROM T営業請求 WHERE T営業請求.営業請求日付 <> '' "
     "AND T営業請求.タイトル <> '' AND T営業請求.タイトル LIKE '%x%' ORDER BY T営業請求.タイトル",
     "索引_T営業請求_タイトル_営業請求日付"},
    {"product_names",
     "SELECT DISTINCT 商品名 FROM T営業請求明細 WHERE T営業請求明細.営業請求日付 >= 'a' AND "
     "T営業請求明細.営業請求日付 <= 'b' "
     "AND T営業請求明細.商品名 <> '' ORDER BY T営業請求明細.商品名",
     "索引_T営業請求明細_商品名_営業請求日付"},
    {"quotation_titles",
     "SELECT DISTINCT T営業見積.タイトル FROM T営業見積 WHERE T営業見積.営業見積日付 <> '' "
     "AND T営業見積.タイトル <> '' ORDER BY T営業見積.タイトル",
     "索引_T営業見積_タイトル_営業見積日付"},
};

// Answered in the order of an index, without sorting and without walking the table itself.
TEST(Schema, AnswersByAnIndex) {
    for (const Plan& p : plans) {
        const std::string plan =
            demo().rows("EXPLAIN QUERY PLAN " + std::string(p.sql), setup::main_file, ado::Access::owner);
        EXPECT_NE(plan.find(p.by), std::string::npos) << p.name << " " << plan;
        EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << p.name << " " << plan;
    }
}

}  // namespace
}  // namespace kalvane
