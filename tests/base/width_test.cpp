// Full-width forms.
#include "base/width.h"

#include <gtest/gtest.h>

#include "support/table.h"

namespace kalvane {
namespace {

// The last rows: marks alone, or behind a kana that does not take them; what has no full-width form here.
TEST(Width, 全角変換) {
    for (const auto& r :
         test::table(R"(0189AZaz|０１８９ＡＺａｚ ; !#$%&'()|！＃＄％＆’（） ; =~\-+*[|＝～￥－＋＊［
        ]@:;.,/?|］＠：；．，／？ ; <>{}ｰ_|＜＞｛｝ー＿ ; "^`|"^` ; ｳﾞｶﾞｷﾞｸﾞｹﾞｺﾞ|ヴガギグゲゴ
        ｻﾞｼﾞｽﾞｾﾞｿﾞ|ザジズゼゾ ; ﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞ|ダヂヅデド ; \
          ﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ|バビブベボ ; ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ|パピプペポ
        ｱｲｳｴｵｶｷｸｹｺ|アイウエオカキクケコ ; ｻｼｽｾｿﾀﾁﾂﾃﾄ|サシスセソタチツテト ; \
          ﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎ|ナニヌネノハヒフヘホ
        ﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ|マミムメモヤユヨラリルレロワヲン ; ｧｨｩｪｫｬｭｮｯ|ァィゥェォャュョッ
        ﾞﾟ|ﾞﾟ ; ｱﾞｵﾞﾅﾞﾏﾞﾝﾞ|アﾞオﾞナﾞマﾞンﾞ ; ﾉﾟﾏﾟｶﾟｳﾟ|ノﾟマﾟカﾟウﾟ ; ﾊﾞﾞ|バﾞ
        ｡｢｣､･|｡｢｣､･ ; 漢字カナＡ１|漢字カナＡ１)"))
        EXPECT_EQ(全角変換(r[0]), r[1]) << r[0];
    EXPECT_EQ(全角変換("| \t"), "｜ \t");
    EXPECT_EQ(全角変換("ﾊ\xEF\xBE"), "ハ\xEF\xBE");  // a mark that is cut off
}

}  // namespace
}  // namespace kalvane
