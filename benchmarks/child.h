// Other programs of the build, run as children.
#pragma once
#include <string>
#include <vector>

namespace kalvane::bench {

// Native path of a program that stands in the folder of this one.
std::string program_beside(const std::string& name);

struct Child {
    int status = -1;     // exit status, -1 when it ended otherwise or did not start
    double seconds = 0;  // from its start to its end
    long peak_kib = 0;   // most memory it held at a time, this process's own peak at its start included
};
// Runs words[0] with the others as its arguments and waits for it; `input` is a file for its standard input,
// "" for none. Its standard output goes where errors go.
Child run_child(const std::vector<std::string>& words, const std::string& input);
// Most memory that this process has held so far, KiB.
long own_peak_kib();

}  // namespace kalvane::bench
