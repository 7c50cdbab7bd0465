#include "base/width.h"

#include <gtest/gtest.h>

namespace kalvane {
namespace {

TEST(Width, 全角変換) {
    struct Row {
        const char* text;
        const char* full;
    };
    const Row rows[] = {
        {"", ""},
        {"0189AZaz", "０１８９ＡＺａｚ"},
        {"KalvaneInvoiceEntry", "ＫａｌｖａｎｅＩｎｖｏｉｃｅＥｎｔｒｙ"},
        {"!#$%&'()", "！＃＄％＆’（）"},
        {"=~|\\-+*[", "＝～｜￥－＋＊［"},
        {"]@:;.,/?", "］＠：；．，／？"},
        {"<>{}ｰ_", "＜＞｛｝ー＿"},
        {" \"^`", " \"^`"},
        {"ｳﾞｶﾞｷﾞｸﾞｹﾞｺﾞ", "ヴガギグゲゴ"},
        {"ｻﾞｼﾞｽﾞｾﾞｿﾞ", "ザジズゼゾ"},
        {"ﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞ", "ダヂヅデド"},
        {"ﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ", "バビブベボ"},
        {"ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ", "パピプペポ"},
        {"ｱｲｳｴｵｶｷｸｹｺ", "アイウエオカキクケコ"},
        {"ｻｼｽｾｿﾀﾁﾂﾃﾄ", "サシスセソタチツテト"},
        {"ﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎ", "ナニヌネノハヒフヘホ"},
        {"ﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ", "マミムメモヤユヨラリルレロワヲン"},
        {"ｧｨｩｪｫｬｭｮｯ", "ァィゥェォャュョッ"},
        {"ﾞﾟ", "ﾞﾟ"},  // a mark alone
        {"ｱﾞｵﾞﾅﾞﾏﾞﾝﾞ", "アﾞオﾞナﾞマﾞンﾞ"},
        {"ﾉﾟﾏﾟｶﾟｳﾟ", "ノﾟマﾟカﾟウﾟ"},  // a mark that the kana does not take
        {"ﾊﾞﾞ", "バﾞ"},
        {"｡｢｣､･", "｡｢｣､･"},
        {"漢字カナＡ１\t", "漢字カナＡ１\t"},
        {"ﾊ\xEF\xBE", "ハ\xEF\xBE"},  // a mark that is cut off
    };
    for (const Row& r : rows) EXPECT_EQ(全角変換(r.text), r.full) << r.text;
}

}  // namespace
}  // namespace kalvane
