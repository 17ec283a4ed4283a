#pragma once

#include "OfficeClient.h"
#include "support/AccountSetFixture.h"
#include "support/Printing.h"

#include <gtest/gtest.h>

#include <memory>

// A session that prints through the installed office, in a profile of the tests' own.
class OfficeFixture : public testing::Test, public AccountSetFixture {
protected:
  OfficeFixture();

  // A second line to the session's office, which is started if it does not run.
  OfficeClient& client();
  // From the office's next start on, the machine has a printer whose paper is a file.
  void installPrinter();
  // How many pages came out of it.
  int printedPages() const;
  // The words on them, one space between two.
  QString printedText() const;
  // How much of the first page a seal covers, in dots of about a millimetre's square.
  int printedRed() const;
  QString filesIn(const QString& name) const;
  // What came out, as PDF.
  QString paper() const { return folder.filePath("paper.pdf"); }

private:
  void writePrinters(const QByteArray& printers) const;

  std::unique_ptr<OfficeClient> m_client;
};
