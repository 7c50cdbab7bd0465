// Master look-ups: a code into the values that it brings to the document. For each master a check that
// leaves its recordset open, a reader, a miss, and the decision on a typed code. Everything is a read.
#pragma once
#include <string>
#include <vector>

namespace kalvane {

// --- checks: true when found; the recordset stays open in the run context for the next routine
bool 得意先存在確認(const std::string& code);
bool 得意先御担当者存在確認(const std::string& code);
bool 担当者存在確認(const std::string& code);
bool 部門存在確認(const std::string& code);
bool セクション存在確認(const std::string& code);
bool 納品先存在確認(const std::string& code);
bool 商品存在確認(const std::string& code);
bool 仕入先存在確認(const std::string& code);

// --- readers: columns that are not NULL into the document, then close; nothing on a released recordset.
// Those of the line work on line i.
void 得意先読込();
void 得意先御担当者読込();
void 担当者読込();
void 部門読込();
void セクション読込();
void 納品先読込();
void 商品読込(int i);
void 仕入先読込(int i);

// --- misses: the code field is emptied, the recordset closed; names and settings stay
void 得意先読込取消();
void 得意先御担当者読込取消();
void 担当者読込取消();
void 部門読込取消();
void セクション読込取消();
void 納品先読込取消();
void 商品読込取消(int i);
void 仕入先読込取消(int i);

// --- decisions on the text of a left field, already masked: false when it is the code held; else the look-up
// and what follows it have run, 案内メッセージ says how it went, and the screen must be redrawn. Those of the
// line work on 現在行.
bool 得意先コード変更(const std::string& text);
bool 得意先御担当者コード変更(const std::string& text);
bool 担当者コード変更(const std::string& text);
bool 部門コード変更(const std::string& text);
bool セクションコード変更(const std::string& text);
bool 納品先コード変更(const std::string& text);
bool 商品コード変更(const std::string& text);
bool 仕入先コード変更(const std::string& text);

// 名称 of a code table in the order of its statement; empty when the read fails.
std::vector<std::string> code_table_names(const std::string& statement);

}  // namespace kalvane
