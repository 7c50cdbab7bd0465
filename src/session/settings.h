// What a company and its sites have settled, read once at start into the run context.
#pragma once
#include <string>

namespace kalvane {

// Company, site, linked systems and the number of sites. True when the company's row exists.
bool 基本情報読込();
// Makes this the site of the installation and stores it; the result of the write is ignored.
void 運用事業所更新(const std::string& code);

}  // namespace kalvane
