#pragma once

#include <QString>

#include <tl/expected.hpp>

class RowWriter;
struct sqlite3;

// The sample data of an account set: a small trading firm at work from 1 April to 8 June 2022. There is
// no chance in it, and it adds up: a header is the sum of its lines, a voucher balances, and what a goods
// bill has been settled for is the sum of its links.
namespace SampleFirm {

// Writes all of it into a new account set (AccountSet::Fill).
[[nodiscard]] tl::expected<void, QString> write(sqlite3* database);

// Decimals, currencies, rights of the two operators beside the administrator, closings, voucher types.
void writeSettings(RowWriter& rows);

// The workbooks through which the bills are printed.
void writeTemplates(RowWriter& rows);

} // namespace SampleFirm
