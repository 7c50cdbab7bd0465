// The demonstration company's partners: customers with contacts, destinations, suppliers, makers, prospects.
//
// How to add a partner: put a row at the end of its table; code, address and telephone follow from the
// position. The first 36 customers carry the tax classes in a pattern and must keep their places. Raise
// schema_version.
#include <array>
#include <string>

#include "base/format.h"
#include "base/text.h"
#include "setup/content.h"
#include "setup/seed.h"

namespace kalvane::setup {
namespace {

// A part of the country: postal code without its last two digits, address, area code, and the staff there.
struct Area {
    std::string_view postal, address, area_code, staff;
};
constexpr auto areas = std::to_array<Area>({
    {"221-00", "神奈川県横浜市神奈川区青木町", "045", "00002"},
    {"104-00", "東京都中央区京橋", "03", "00003"},
    {"530-00", "大阪府大阪市北区中之島", "06", "00005"},
    {"812-00", "福岡県福岡市博多区綱場町", "092", "00008"},
    {"460-00", "愛知県名古屋市中区栄", "052", "00003"},
    {"650-00", "兵庫県神戸市中央区海岸通", "078", "00006"},
    {"980-08", "宮城県仙台市青葉区一番町", "022", "00004"},
    {"060-00", "北海道札幌市中央区北一条西", "011", "00004"},
    {"730-00", "広島県広島市中区大手町", "082", "00008"},
    {"600-80", "京都府京都市下京区四条通", "075", "00006"},
});

struct Partner {
    std::string_view name, short_name, kana, contact = "", second_name = "";
};

constexpr auto customers = std::to_array<Partner>({
    {"株式会社青葉製作所", "青葉製作所", "ｱｵﾊﾞｾｲｻｸｼｮ", "石川 和也"},
    {"有限会社いずみ工務店", "いずみ工務店", "ｲｽﾞﾐｺｳﾑﾃﾝ", "泉 正人"},
    {"株式会社梅田システム", "梅田システム", "ｳﾒﾀﾞｼｽﾃﾑ", "中島 裕子"},
    {"医療法人恵愛会", "恵愛会", "ｹｲｱｲｶｲ", "前田 直美", "恵愛病院"},
    {"株式会社大川運輸", "大川運輸", "ｵｵｶﾜｳﾝﾕ", "大川 茂"},
    {"神戸海産株式会社", "神戸海産", "ｺｳﾍﾞｶｲｻﾝ", "藤田 明"},
    {"学校法人杜の都学園", "杜の都学園", "ﾓﾘﾉﾐﾔｺｶﾞｸｴﾝ", "後藤 裕美", "事務局"},
    {"株式会社北星フーズ", "北星フーズ", "ﾎｸｾｲﾌｰｽﾞ", "岡田 健"},
    {"広島精機株式会社", "広島精機", "ﾋﾛｼﾏｾｲｷ", "長谷川 修"},
    {"株式会社京屋呉服店", "京屋呉服店", "ｷｮｳﾔｺﾞﾌｸﾃﾝ", "西村 京子"},
    {"みどり農業協同組合", "みどり農協", "ﾐﾄﾞﾘﾉｳｷｮｳ", "近藤 勉"},
    {"株式会社銀座文具", "銀座文具", "ｷﾞﾝｻﾞﾌﾞﾝｸﾞ", "村上 由美"},
    {"浪速建設株式会社", "浪速建設", "ﾅﾆﾜｹﾝｾﾂ", "遠藤 学"},
    {"博多水産株式会社", "博多水産", "ﾊｶﾀｽｲｻﾝ", "青木 博"},
    {"株式会社栄デザイン", "栄デザイン", "ｻｶｴﾃﾞｻﾞｲﾝ", "坂本 真理"},
    {"六甲電機株式会社", "六甲電機", "ﾛｯｺｳﾃﾞﾝｷ", "福田 進"},
    {"仙台印刷株式会社", "仙台印刷", "ｾﾝﾀﾞｲｲﾝｻﾂ", "太田 清"},
    {"株式会社白樺観光", "白樺観光", "ｼﾗｶﾊﾞｶﾝｺｳ", "三浦 涼子"},
    {"瀬戸内造船株式会社", "瀬戸内造船", "ｾﾄｳﾁｿﾞｳｾﾝ", "藤井 昭"},
    {"ビストロ L'Etoile", "L'Etoile", "ﾋﾞｽﾄﾛﾚﾄﾜｰﾙ", "岡本 翔"},
    {"株式会社港南商事", "港南商事", "ｺｳﾅﾝｼｮｳｼﾞ", "松田 一郎"},
    {"京橋法律事務所", "京橋法律", "ｷｮｳﾊﾞｼﾎｳﾘﾂ", "中川 弁護士"},
    {"株式会社中之島企画", "中之島企画", "ﾅｶﾉｼﾏｷｶｸ", "中野 茜"},
    {"九州物流センター株式会社", "九州物流", "ｷｭｳｼｭｳﾌﾞﾂﾘｭｳ", "原田 剛"},
    {"東海自動車部品株式会社", "東海自動車部品", "ﾄｳｶｲｼﾞﾄﾞｳｼｬ", "小川 豊"},
    {"株式会社海岸倉庫", "海岸倉庫", "ｶｲｶﾞﾝｿｳｺ", "竹内 実"},
    {"青葉区子育て支援の会", "子育て支援の会", "ｺｿﾀﾞﾃｼｴﾝﾉｶｲ", "金子 美樹"},
    {"札幌冷蔵株式会社", "札幌冷蔵", "ｻｯﾎﾟﾛﾚｲｿﾞｳ", "和田 望"},
    {"株式会社大手町会計", "大手町会計", "ｵｵﾃﾏﾁｶｲｹｲ", "中山 理恵"},
    {"四条薬局", "四条薬局", "ｼｼﾞｮｳﾔｯｷｮｸ", "石田 聡"},
    {"株式会社横浜機材", "横浜機材", "ﾖｺﾊﾏｷｻﾞｲ", "上田 亮"},
    {"中央出版株式会社", "中央出版", "ﾁｭｳｵｳｼｭｯﾊﾟﾝ", "森田 文"},
    {"淀川化成株式会社", "淀川化成", "ﾖﾄﾞｶﾞﾜｶｾｲ", "原 康夫"},
    {"株式会社天神アパレル", "天神アパレル", "ﾃﾝｼﾞﾝｱﾊﾟﾚﾙ", "柴田 結衣"},
    {"名古屋硝子株式会社", "名古屋硝子", "ﾅｺﾞﾔｶﾞﾗｽ", "酒井 隆之"},
    {"灘酒造株式会社", "灘酒造", "ﾅﾀﾞｼｭｿﾞｳ", "工藤 杜氏"},
    {"諸口", "諸口", "ｼｮｸﾁ"},
    {"株式会社新都心開発", "新都心開発", "ｼﾝﾄｼﾝｶｲﾊﾂ", "横山 大地"},
    {"有限会社宮本家具", "宮本家具", "ﾐﾔﾓﾄｶｸﾞ", "宮本 弘"},
    {"株式会社旧港興業", "旧港興業", "ｷｭｳｺｳｺｳｷﾞｮｳ", "高木 登"},
});

// where they stand, by the customer's number
struct Destination {
    Partner partner;
    int customer;
};
constexpr auto destinations = std::to_array<Destination>({
    {{"株式会社青葉製作所", "青葉 川崎工場", "ｱｵﾊﾞｶﾜｻｷ", "", "川崎工場"}, 1},
    {{"株式会社青葉製作所", "青葉 厚木工場", "ｱｵﾊﾞｱﾂｷﾞ", "", "厚木工場"}, 1},
    {{"有限会社いずみ工務店", "いずみ 資材置場", "ｲｽﾞﾐｼｻﾞｲ", "", "資材置場"}, 2},
    {{"株式会社梅田システム", "梅田 開発室", "ｳﾒﾀﾞｶｲﾊﾂ", "", "開発室"}, 3},
    {{"恵愛病院", "恵愛病院", "ｹｲｱｲﾋﾞｮｳｲﾝ", "", "用度課"}, 4},
    {{"恵愛会", "恵愛 訪問看護", "ｹｲｱｲﾎｳﾓﾝ", "", "訪問看護ステーション"}, 4},
    {{"株式会社大川運輸", "大川 車庫", "ｵｵｶﾜｼｬｺ", "", "第二車庫"}, 5},
    {{"神戸海産株式会社", "神戸海産 市場", "ｺｳﾍﾞｲﾁﾊﾞ", "", "中央市場内売店"}, 6},
    {{"杜の都学園", "杜の都 高等部", "ﾓﾘﾉﾐﾔｺｺｳﾄｳﾌﾞ", "", "高等部事務室"}, 7},
    {{"株式会社北星フーズ", "北星 石狩工場", "ﾎｸｾｲｲｼｶﾘ", "", "石狩工場"}, 8},
    {{"広島精機株式会社", "広島精機 呉工場", "ﾋﾛｼﾏｸﾚ", "", "呉工場"}, 9},
    {{"株式会社京屋呉服店", "京屋 嵐山店", "ｷｮｳﾔｱﾗｼﾔﾏ", "", "嵐山店"}, 10},
    {{"みどり農業協同組合", "みどり 直売所", "ﾐﾄﾞﾘﾁｮｸﾊﾞｲ", "", "直売所"}, 11},
    {{"浪速建設株式会社", "浪速 此花現場", "ﾅﾆﾜｺﾉﾊﾅ", "", "此花現場事務所"}, 13},
    {{"六甲電機株式会社", "六甲 三田工場", "ﾛｯｺｳｻﾝﾀﾞ", "", "三田工場"}, 16},
    {{"瀬戸内造船株式会社", "瀬戸内 尾道", "ｾﾄｳﾁｵﾉﾐﾁ", "", "尾道造船所"}, 19},
    {{"九州物流センター株式会社", "九州物流 鳥栖", "ｷｭｳｼｭｳﾄｽ", "", "鳥栖倉庫"}, 24},
    {{"東海自動車部品株式会社", "東海 豊田", "ﾄｳｶｲﾄﾖﾀ", "", "豊田工場"}, 25},
    {{"現場直送", "現場直送", "ｹﾞﾝﾊﾞﾁｮｸｿｳ"}, 37},
    {{"株式会社旧港興業", "旧港 倉庫", "ｷｭｳｺｳｿｳｺ", "", "旧港倉庫"}, 40},
});

constexpr auto suppliers = std::to_array<Partner>({
    {"東和文具卸株式会社", "東和文具卸", "ﾄｳﾜﾌﾞﾝｸﾞｵﾛｼ"},
    {"株式会社日新紙業", "日新紙業", "ﾆｯｼﾝｼｷﾞｮｳ"},
    {"三栄オフィス家具株式会社", "三栄家具", "ｻﾝｴｲｶｸﾞ"},
    {"株式会社光電子販売", "光電子販売", "ﾋｶﾘﾃﾞﾝｼ"},
    {"中央ソフト流通株式会社", "中央ソフト", "ﾁｭｳｵｳｿﾌﾄ"},
    {"株式会社丸福食品", "丸福食品", "ﾏﾙﾌｸｼｮｸﾋﾝ"},
    {"北の水株式会社", "北の水", "ｷﾀﾉﾐｽﾞ"},
    {"株式会社書籍取次センター", "書籍取次", "ｼｮｾｷﾄﾘﾂｷﾞ"},
    {"湾岸梱包運輸株式会社", "湾岸梱包", "ﾜﾝｶﾞﾝｺﾝﾎﾟｳ"},
    {"有限会社山下清掃用品", "山下清掃用品", "ﾔﾏｼﾀｾｲｿｳ"},
    {"株式会社関西電材", "関西電材", "ｶﾝｻｲﾃﾞﾝｻﾞｲ"},
    {"O'Hara 貿易株式会社", "O'Hara 貿易", "ｵﾊﾗﾎﾞｳｴｷ"},
    {"協和サービス株式会社", "協和サービス", "ｷｮｳﾜｻｰﾋﾞｽ"},
    {"株式会社南国青果", "南国青果", "ﾅﾝｺﾞｸｾｲｶ"},
    {"株式会社廃業商店", "廃業商店", "ﾊｲｷﾞｮｳｼｮｳﾃﾝ"},
});

constexpr auto makers = std::to_array<Partner>({
    {"ミナモ筆記具株式会社", "ミナモ筆記具", "ﾐﾅﾓﾋｯｷｸﾞ"},
    {"白鷺製紙株式会社", "白鷺製紙", "ｼﾗｻｷﾞｾｲｼ"},
    {"カシワ木工株式会社", "カシワ木工", "ｶｼﾜﾓｯｺｳ"},
    {"テンビン電子株式会社", "テンビン電子", "ﾃﾝﾋﾞﾝﾃﾞﾝｼ"},
    {"アオギリ通信機株式会社", "アオギリ通信", "ｱｵｷﾞﾘﾂｳｼﾝ"},
    {"清流飲料株式会社", "清流飲料", "ｾｲﾘｭｳｲﾝﾘｮｳ"},
    {"あさぎり製菓株式会社", "あさぎり製菓", "ｱｻｷﾞﾘｾｲｶ"},
    {"クリーン化学株式会社", "クリーン化学", "ｸﾘｰﾝｶｶﾞｸ"},
});

// Prospects; some have become a customer or a supplier.
struct Prospect {
    Partner partner;
    std::string_view customer = "", supplier = "";
};
constexpr auto prospects = std::to_array<Prospect>({
    {{"株式会社新横浜ホテル", "新横浜ホテル", "ｼﾝﾖｺﾊﾏﾎﾃﾙ"}},
    {{"合同会社スズラン", "スズラン", "ｽｽﾞﾗﾝ"}},
    {{"株式会社横浜機材", "横浜機材", "ﾖｺﾊﾏｷｻﾞｲ"}, "000031"},
    {{"中央出版株式会社", "中央出版", "ﾁｭｳｵｳｼｭｯﾊﾟﾝ"}, "000032"},
    {{"株式会社南国青果", "南国青果", "ﾅﾝｺﾞｸｾｲｶ"}, "", "000014"},
    {{"有限会社田原商店", "田原商店", "ﾀﾊﾗｼｮｳﾃﾝ"}},
    {{"社会福祉法人ひまわり", "ひまわり", "ﾋﾏﾜﾘ"}},
    {{"株式会社港湾サービス", "港湾サービス", "ｺｳﾜﾝｻｰﾋﾞｽ"}},
});

static_assert(customers.size() == 40 && destinations.size() == 20 && suppliers.size() == 15);

template <class Table>
constexpr int count(const Table& table) {
    return static_cast<int>(table.size());
}
// The i-th row, from the front again behind the last one.
template <class Table>
constexpr const auto& nth(const Table& table, int i) {
    return table[static_cast<std::size_t>(i) % table.size()];
}

constexpr std::string_view address_columns =
    "コード 名称A 名称B 略称 カナ 郵便番号 住所A 住所B 電話 電話番号 担当者コード ";

// The telephone number of a partner; numbers that begin with 0 behind the area code are given to nobody.
std::string telephone(const Area& area, int exchange, int number) {
    return std::string(area.area_code) + "-" + Format(exchange, "000") + "-" + Format(number, "0000");
}

// The values of address_columns for the i-th partner (from 0) of a family; the family's number tells their
// telephones apart.
Row address_row(const Partner& partner, int i, int family) {
    const Area& area = nth(areas, i);
    const std::string number = telephone(area, family, 1001 + i * 37);
    return {Format(i + 1, "000000"),
            std::string(partner.name),
            std::string(partner.second_name),
            std::string(partner.short_name),
            std::string(partner.kana),
            std::string(area.postal) + Format(i * 3 % 60 + 1, "00"),
            std::string(area.address) + Format(i % 5 + 1, "0") + "-" + Format(i * 7 % 19 + 1, "0"),
            i % 4 == 3 ? "第" + Format(i % 9 + 1, "0") + "ビル" + Format(i % 6 + 2, "0") + "階" : "",
            number,
            Replace(number, "-", ""),
            std::string(area.staff)};
}

void append(Row& row, std::initializer_list<std::string> values) {
    row.insert(row.end(), values);
}

// The i-th customer's classes. Thirty-six customers hold each triple of calculation unit, method and
// position; tax class and adjustment are laid over them so that any three of the five occur in every
// combination.
struct TaxClasses {
    int unit, method, position, tax, adjustment;
};
constexpr TaxClasses tax_classes(int i) {
    constexpr auto methods = std::to_array<int>({0, 5, 9});
    const int unit = i % 4, method = i / 4 % 3, position = i / 12 % 3, sum = unit + method + position;
    return {unit, nth(methods, method), position - 1, sum % 2 + 1, sum % 4 < 2 ? 1 : 0};
}

std::string status(int i, int last) {
    return i == last ? "3" : i % 13 == 12 ? "2" : i % 9 == 8 ? "1" : "0";
}

std::vector<Row> customer_rows() {
    std::vector<Row> rows;
    for (int i = 0; i < count(customers); ++i) {
        const Partner& partner = nth(customers, i);
        const TaxClasses c = tax_classes(i);
        Row row = address_row(partner, i, 1);
        // the names of casual customers and of every ninth may be typed over
        append(row, {std::string(partner.contact), Format(c.tax, "0"), Format(c.unit, "0"),
                     Format(c.method, "0"), Format(c.position, "0"), Format(c.adjustment, "0"),
                     i == 36 || i % 9 == 4 ? "1" : "0", status(i, 39)});
        rows.push_back(std::move(row));
    }
    return rows;
}

// Two contacts for every second customer, with numbers of their own.
std::vector<Row> contact_rows() {
    constexpr auto people = std::to_array<Partner>({
        {"安藤 さやか", "", "ｱﾝﾄﾞｳ ｻﾔｶ"},
        {"本田 克己", "", "ﾎﾝﾀﾞ ｶﾂﾐ"},
        {"久保 玲奈", "", "ｸﾎﾞ ﾚｲﾅ"},
        {"野口 悟", "", "ﾉｸﾞﾁ ｻﾄﾙ"},
        {"菊地 あゆみ", "", "ｷｸﾁ ｱﾕﾐ"},
        {"新井 勝", "", "ｱﾗｲ ﾏｻﾙ"},
        {"古川 奈々", "", "ﾌﾙｶﾜ ﾅﾅ"},
        {"大西 弘樹", "", "ｵｵﾆｼ ﾋﾛｷ"},
    });
    std::vector<Row> rows;
    for (int i = 0; i < count(customers); i += 2)
        for (int n = 0; n < 2; ++n) {
            const Partner& person = nth(people, i / 2 * 3 + n);
            const std::string number = telephone(nth(areas, i), 9, 2001 + i * 11 + n);
            rows.push_back({Format(i + 1, "000000"), Format(n + 1, "00000"), std::string(person.name),
                            std::string(person.kana), number, Replace(number, "-", ""),
                            "contact" + Format(i + 1, "00") + Format(n + 1, "0") + "@example.jp"});
        }
    return rows;
}

}  // namespace

void fill_demo_partners(ado::Connection& main) {
    const std::string address(address_columns);
    insert_rows(main, "M得意先",
                address +
                    "御担当者名 消費税区分 消費税算出区分 消費税丸め方法 消費税丸め桁位置 "
                    "消費税端数調整区分 名称入力区分 取引状況区分",
                customer_rows());
    insert_rows(main, "M得意先御担当者", "得意先コード 御担当者コード 氏名 カナ 電話 電話番号 EMAIL",
                contact_rows());

    std::vector<Row> rows;
    for (int i = 0; i < count(destinations); ++i) {
        Row row = address_row(nth(destinations, i).partner, i, 2);
        row.back() = areas[static_cast<std::size_t>(nth(destinations, i).customer - 1) % areas.size()].staff;
        append(row, {i == 18 || i % 7 == 3 ? "1" : "0", status(i, 19)});
        rows.push_back(std::move(row));
    }
    insert_rows(main, "M納品先", address + "名称入力区分 取引状況区分", rows);

    rows.clear();
    for (int i = 0; i < count(suppliers); ++i) {
        Row row = address_row(nth(suppliers, i), i, 3);
        const TaxClasses c = tax_classes(i * 7);
        append(row, {Format(c.tax, "0"), Format(c.unit, "0"), Format(c.method, "0"), Format(c.position, "0"),
                     Format(c.adjustment, "0"), i == 11 ? "1" : "0", status(i, 14)});
        rows.push_back(std::move(row));
    }
    insert_rows(main, "M仕入先",
                address +
                    "消費税区分 消費税算出区分 消費税丸め方法 消費税丸め桁位置 消費税端数調整区分 "
                    "名称入力区分 取引状況区分",
                rows);

    rows.clear();
    for (int i = 0; i < count(makers); ++i) {
        rows.push_back(address_row(nth(makers, i), i, 4));
        append(rows.back(), {"0"});
    }
    insert_rows(main, "Mメーカ", address + "取引状況区分", rows);

    rows.clear();
    for (int i = 0; i < count(prospects); ++i) {
        rows.push_back(address_row(nth(prospects, i).partner, i, 5));
        append(rows.back(),
               {std::string(nth(prospects, i).customer), std::string(nth(prospects, i).supplier), "0"});
    }
    insert_rows(main, "M対応先", address + "得意先コード 仕入先コード 取引状況区分", rows);
}

}  // namespace kalvane::setup
