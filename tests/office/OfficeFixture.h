#pragma once

#include "OfficeClient.h"
#include "printing/BillTemplate.h"
#include "screen/Form.h"
#include "screen/Grid.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <memory>

// A session that prints through the installed office, in a profile of the tests' own.
class OfficeFixture : public testing::Test, public AccountSetFixture {
protected:
  OfficeFixture();

  // A second client of the session's office, which is started if it is not running.
  OfficeClient& client();
  // The only open workbook.
  OfficeClient::Book openBook();
  // A new workbook with a first sheet of this name.
  OfficeClient::Book newBook(const QString& sheet);

  // Stores a template of this name in the account set.
  void putTemplate(const QString& name, const QByteArray& content) const;
  // Stores the workbook in a file first, and closes it.
  void putTemplate(const QString& name, OfficeClient::Book book) const;
  // Prints the payment FKD1 with the lines of `grid`. Returns the texts of the boxes; `midway` runs when the template is open.
  QString print(const QString& name, BillTemplate::Finish finish, const std::function<void()>& midway = nullptr);
  static constexpr char Failed[] = "操作发生不可预测性错误！请退出软件重启电脑后再操作！";

  // From the office's next start on, the machine has a printer whose paper is a file.
  void installPrinter();
  // What was printed, as PDF.
  QString paper() const { return folder.filePath("paper.pdf"); }
  int printedPages() const;
  // The words on them, separated by one space.
  QString printedText() const;
  // How much of the first page a seal covers, in dots of about a square millimetre.
  int printedRed() const;
  QString filesIn(const QString& name) const;

  Form form{desk, "frmPayfund"};
  Grid grid{&form, "MSH"};

private:
  void writePrinters(const QByteArray& printers) const;

  std::unique_ptr<OfficeClient> m_client;
};
