// Boxes that data and rules open of themselves. Boxes belong to the floors that speak to an operator; a
// routine here tells its caller by its result. Where the wording of a routine asks for a box all the same,
// the box is in this table and opens through show_fault. (The wait box, data/wait_box.h, asks nothing.)
//
// How to add one: a value here and its row in fault_box.cpp.
#pragma once
#include <string>

namespace kalvane {

enum class Fault { folder_not_made, configuration_not_opened, no_number_series };

// Shows the words of the fault with its cause between them, and waits for OK.
void show_fault(Fault fault, const std::string& cause = "");

}  // namespace kalvane
