// A copy of the three records, to go back to when what was begun fails.
#pragma once
#include "records/document.h"
#include "records/run_context.h"

namespace kalvane {

struct RecordCopy {
    RunContext run = 実行環境;
    HeaderRecord header = 請求ヘッダ;
    LineArray lines = 請求明細行;

    void keep() {
        run = 実行環境;
        header = 請求ヘッダ;
        lines = 請求明細行;
    }
    // Connections and open recordsets stay as they are, and what was written to the run history stays
    // counted.
    void restore() const {
        const double rows = 実行環境.proccounter;
        実行環境 = run;
        実行環境.proccounter = rows;
        請求ヘッダ = header;
        請求明細行 = lines;
    }
};

}  // namespace kalvane
