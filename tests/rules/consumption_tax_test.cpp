// Tax figures, worked by hand.
#include "rules/consumption_tax.h"

#include <sstream>

#include "base/failure.h"
#include "base/format.h"
#include "support/program_database.h"

namespace kalvane {
namespace {

struct ConsumptionTax : ProgramDatabase {
    // Rates newest first, parted by ","; the newest holds from 20200101.
    static void set_rates(const std::string& rates) {
        run("DELETE FROM G消費税");
        int year = 2020;
        std::istringstream in(rates);
        for (std::string rate; std::getline(in, rate, ',');)
            run("INSERT INTO G消費税 VALUES ('" + std::to_string(year--) + "0101'," + rate + ")");
    }
};

// Amount, kind, method, position, rates, previous rate, tax. Then by rows: a negative position is a factor of
// ten times itself; ties of the quotient go to the even ten-thousandth, in plain double; a method of ten and
// more adds whole units, even to nothing; which rate; a negative rate rounds its own way (-10 x -12.34 - 0.5
// = 122.9, cut to 122).
TEST_F(ConsumptionTax, WorkedValues) {
    for (const auto& r :
         test::table(R"(1234|1|0|0|5|0|61 ; 1234|1|5|0|5|0|62 ; 1050|2|0|0|5|0|50 ; 1234|1|5|1|5|0|60
        -1234|1|5|0|5|0|-62 ; 123456|1|5|2|8|0|9900 ; 125000|1|5|3|10|0|13000 ; 1099|2|9|0|10|0|100
        246.8|1|0|-1|5|0|12.3 ; 246.8|1|5|-1|5|0|12.2 ; 246.8|1|5|-2|5|0|12.3 ; 246.8|1|5|-3|5|0|12.3
        -246.8|1|5|-1|5|0|-12.2 ; 246.8|1|0|-3|5|0|12.3333 ; 0.126|1|0|-16|5|0|0.0062
        0.376|1|0|-16|5|0|0.0188 ; 9.999|1|5|0|5|0|1 ; 9.997|1|0|-1000|5|0|0.4998 ; 0.001|1|0|-1000|5|0|0
        0.005|1|0|-1000|5|0|0.0002 ; 209.999|1|5|0|5|0|10 ; 19.999|1|0|0|5|0|0 ; 16.665|1|5|0|3|0|0
        264.9995|1|5|0|10|0|27 ; 0|1|5|-1|10|0|0 ; 0|1|10|0|10|0|1 ; 0|1|10|-1|10|0|-0.1
        1000|3|5|0|10|0|0 ; 1000|3|10|1|10|0|10 ; 1000|1|0|0|10,8|0|100 ; 1000|1|0|0|10,8|1|80
        1000|1|0|0|10,8|2|100 ; 1000|1|10|0|10|1|0 ; 1000|1|10|0||0|0 ; 1000|1|5|0|NULL|0|0
        1000|1|0|0|'7.5'|0|75 ; 1234|1|5|0|-5|0|-62 ; 246.8|1|5|-1|-5|0|-12.2)")) {
        set_rates(r[4]);
        const 通貨 tax =
            消費税計算(to_currency(r[0]), to_i16(r[1]), to_i16(r[2]), to_i16(r[3]), "20240401", to_i16(r[5]));
        EXPECT_EQ(plain_number(tax), r[6])
            << r[0] << " kind " << r[1] << " method " << r[2] << " position " << r[3];
    }
}

TEST_F(ConsumptionTax, OneReadACallByTheDate) {
    for (const auto& r :
         test::table(R"(19890331|0|0 ; 19890401|0|30 ; 19890401|1|0 ; 20140331|0|50 ; 20140401|0|80
        20140401|1|50 ; 20191001|0|100 ; 20240401|1|80 ; |0|0)"))
        EXPECT_EQ(plain_number(消費税計算(通貨::whole(1000), 1, 0, 0, r[0], to_i16(r[1]))), r[2]) << r[0];
    statements.clear();
    for (const char* db : {"S", "O", "A"}) {
        実行環境.db = db;
        消費税計算(通貨::whole(1000), 1, 0, 0, "20191001", 1);
    }
    EXPECT_EQ(statements, std::vector<std::string>(3,
                                                   "SELECT G消費税.* FROM G消費税 WHERE G消費税.施行日 <= "
                                                   "'20191001' ORDER BY G消費税.施行日 DESC"));
    EXPECT_EQ(error_rows(), "0");
}

TEST_F(ConsumptionTax, AFailingReadIsNoTax) {
    set_rates("10");
    for (const char* db : {"X", "A"}) {  // without a statement, and with one that fails
        実行環境.db = db;
        failing = "SELECT";
        EXPECT_TRUE(消費税計算(通貨::whole(1000), 1, 10, 0, "20240401", 0).is_zero());
        failing.clear();
        EXPECT_EQ(error_rows(), *db == 'X' ? "1" : "2");
    }
}

TEST_F(ConsumptionTax, LeavingTheRangeIsAFailure) {
    set_rates("10");
    const auto tax = [](std::int64_t units, std::int16_t kind, std::int16_t position) {
        return 消費税計算(通貨::from_units(units), kind, 5, position, "20240401", 0);
    };
    EXPECT_THROW(tax(INT64_MIN, 1, 0), RunFailure);  // no magnitude
    EXPECT_THROW(tax(10000, 1, -3277), RunFailure);  // -32770 in 16 bits
    EXPECT_NO_THROW(tax(10000, 1, -3276));
    EXPECT_THROW(tax(INT64_MAX - 1, 1, -100), RunFailure);  // a tenth of it times 1000
    EXPECT_NO_THROW(tax(INT64_MAX - 1, 1, 0));
    set_rates("-100");
    EXPECT_THROW(tax(10000, 2, 0), RunFailure);  // divided by nothing
}

}  // namespace
}  // namespace kalvane
