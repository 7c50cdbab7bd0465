// What stands in the tables of a fresh installation.
#pragma once
#include <string>

#include "platform/ado/ado.h"

namespace kalvane::setup {

// Common to every installation: code tables, number series, tax rates in the business database; the menu rows
// and the local settings in the configuration database. ado::Error: what was inserted stays.
void fill_common(ado::Connection& main, ado::Connection& config);
// One company without a name of its own, its head office, one operator.
void fill_empty_company(ado::Connection& main);
// The demonstration company: sites, staff, partners, products; the same rows every time.
void fill_demo_company(ado::Connection& main);
// Parts of the demonstration company.
void fill_demo_staff(ado::Connection& main);
void fill_demo_partners(ado::Connection& main);
void fill_demo_products(ado::Connection& main);
// Quotations, orders, deliveries and invoices, in an installation whose masters stand. Uses the program's
// records, which are fresh afterwards.
void fill_demo_documents(const std::string& root);

}  // namespace kalvane::setup
