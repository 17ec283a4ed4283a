#pragma once

#include "printing/BillTemplate.h"

class BillScreen;

// The printouts of the bill that a screen shows. Each checks the right to print first.
namespace BillPrints {

// Through the print manager; `printType` is "直接打印", "打印预览" or "打印设置".
void PrintHandOff(const BillScreen& screen, const QString& printType);
// Through a workbook template.
void PrintBill_Excel(const BillScreen& screen, const QString& templateName, BillTemplate::Finish finish);
// Exports the lines.
void FExcle_PT_Click(const BillScreen& screen);
// Opens the program that manages the templates.
void MPrintSet_Excel_Click(const BillScreen& screen);

} // namespace BillPrints
