// msgお待ち: the small box that stays on top during long work.
#pragma once
#include "platform/screen/form.h"

namespace kalvane {

struct WaitBox : Form {
    Control lab_msg;
};
inline WaitBox msgお待ち;

// Shows it without waiting and lets the screen draw once.
void お待ち表示();
void お待ち終了();

// The box for the length of a scope, so that no failure leaves it standing.
class お待ち {
  public:
    お待ち() { お待ち表示(); }
    ~お待ち() { お待ち終了(); }
    お待ち(const お待ち&) = delete;
    お待ち& operator=(const お待ち&) = delete;
};

}  // namespace kalvane
