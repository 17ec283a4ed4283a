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
// for, started again when it has died, and ended with this object. An office in which the operator was left
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
  // Leaves the office to an operator who has opened documents of his own in it: neither our death nor our end
  // closes them. The work with our own goes on.
  void leaveToOperator();
  // Closes a workbook of ours, unsaved.
  void close(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& workbook);
  // Whether the machine has a printer: a default one is offered even where there is none.
  bool hasPrinter() const;
  OfficeConnection& connection() { return m_connection; }

private:
  std::unique_ptr<Workbook> load(const QString& url);
  bool isExcel(const QString& url) const;
  void require();
  void kill();
  bool answers();
  void takeInstance();
  bool takeInstance(const OfficeInstance& instance);
  void clearInstances();
  bool hasOperatorsDocuments() const;
  void startAndConnect();
  void giveUp();
  bool connectWhileStarting();
  void end();

  OfficeConnection m_connection;
  OfficeProcess m_process;
  OfficeInstance m_instance;
  std::unique_ptr<QLockFile> m_instanceLock;
  QList<com::sun::star::uno::Reference<com::sun::star::frame::XModel>> m_workbooks; // ours, open in it
  std::atomic<bool> m_isOperators = false;                                          // though a workbook of ours is still open
  Patience m_patience;
};
