// Starting the suite's other programs from the entry screen.
#pragma once

namespace kalvane {

void 請求書印刷();  // the print program for the document on the screen

}  // namespace kalvane
