// The words of the faults.
#include "data/fault_box.h"

#include <array>

#include "platform/screen/host.h"

namespace kalvane {
namespace {

struct FaultWords {
    Fault fault;
    const char *before, *behind = "";  // the cause
};
constexpr auto fault_words = std::to_array<FaultWords>({
    {.fault = Fault::folder_not_made, .before = "DIREXISTCHK ERROR"},
    {.fault = Fault::configuration_not_opened, .before = "SYB_OPEN ERROR", .behind = "\rsysopen error"},
    {.fault = Fault::no_number_series, .before = "番号情報に問題が発生設定できませんでした。"},
});

constexpr bool fault_words_in_order() {
    for (std::size_t i = 0; i < fault_words.size(); ++i)
        if (static_cast<std::size_t>(fault_words[i].fault) != i) return false;
    return true;
}
static_assert(fault_words_in_order());

}  // namespace

void show_fault(Fault fault, const std::string& cause) {
    const FaultWords& words = fault_words[static_cast<std::size_t>(fault)];
    message_box(words.before + cause + words.behind);
}

}  // namespace kalvane
