#pragma once

#include "platform/RunTimeError.h"
#include "spreadsheet/Spreadsheet.h"
#include "spreadsheet/office/OfficeConnection.h"
#include "spreadsheet/office/OfficeProcess.h"
#include "spreadsheet/office/Patience.h"
#include "spreadsheet/office/Text.h"

#include <com/sun/star/uno/Exception.hpp>

class QLockFile;

// The installed office suite as the spreadsheet program. It is started when the first workbook is asked
// for, started anew when it has died, and ended with this object. An office in which the operator was left
// a workbook is his from then on, and the next workbook gets another one.
class Office : public SpreadsheetDriver {
public:
  // The longest wait for an answer before the office is ended, and for its start.
  explicit Office(std::chrono::milliseconds limit = std::chrono::seconds(60));
  ~Office() override;

  std::unique_ptr<Workbook> open(const QString& path) override;
  std::unique_ptr<Workbook> create() override;

  // Runs one piece of work with the office, within the limit; what goes wrong comes out as RunTimeError.
  template <typename Work> auto call(const Work& work)
  {
    const Patience::Turn turn(m_patience);
    try {
      return work();
    } catch (const com::sun::star::uno::Exception& exception) {
      throw RunTimeError(RunTimeError::Automation, programText(exception.Message));
    }
  }

  // A workbook, and the office with it, stays with the operator. Where he has no display it goes with this
  // object: nobody could close it.
  void handOver();
  // Whether the machine has a printer: a default one is offered even where there is none.
  bool hasPrinter() const;
  OfficeConnection& connection() { return m_connection; }

private:
  std::unique_ptr<Workbook> load(const QString& url);
  void require();
  bool answers();
  void takePlace();
  void startAndConnect();
  bool connectWhileStarting();
  void end();

  OfficeConnection m_connection;
  OfficeProcess m_process;
  OfficePlace m_place;
  std::unique_ptr<QLockFile> m_placeLock;
  Patience m_patience;
};
