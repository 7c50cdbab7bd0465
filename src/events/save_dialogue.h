// From the press of btn_登録 to the cleared screen.
#pragma once
#include <cstdint>
#include <string>

#include "platform/screen/form.h"
#include "session/sign_on.h"

namespace kalvane {

// The question before a save: message, text, and the answers save and print, save, no.
struct SaveQuestion : Form {
    Control lab_inpmsg, lab_msg, btn_いいえ, btn_登録印刷, btn_登録;
};
inline SaveQuestion msg印刷確認;

// btn_登録: the mandatory check, then 登録処理.
void 登録要求();
// The right to an operation that writes, and the date of the document. Without them: a box, back to the field
// that was left, and false.
bool 書込可否確認(Operation kind);
// Right and date, reference, tax difference, question, statements, print, cleared screen.
void 登録処理();
// Shows the question modally; result 0 save and print, 1 save, 2 no or closed by any other way.
void 登録確認表示(const std::string& title, const std::string& message, std::int16_t& result);
// The screen after a save or delete: a new document, its first field in focus, or the end of a run that was
// started for one document.
void 登録後画面初期化();
void 登録後終了();

}  // namespace kalvane
