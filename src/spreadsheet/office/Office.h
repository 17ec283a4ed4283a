#pragma once

#include "spreadsheet/Spreadsheet.h"
#include "spreadsheet/office/OfficeConnection.h"
#include "spreadsheet/office/OfficeProcess.h"
#include "spreadsheet/office/Patience.h"
#include "spreadsheet/office/Text.h"

#include <com/sun/star/uno/Exception.hpp>

class QLockFile;

// The installed office suite as the spreadsheet program. It is started when the first workbook is requested,
// restarted if it has died, and ended with this object. Once a workbook is handed over, the process belongs to the
// operator, and the next workbook gets another one.
class Office : public SpreadsheetDriver {
public:
  // The timeout of a call, after which the office is killed, and of its start. RunTimeError if none is installed.
  explicit Office(std::chrono::milliseconds limit = std::chrono::seconds(60));
  ~Office() override;

  SpreadsheetResult<std::unique_ptr<Workbook>> open(const QString& path) override;
  SpreadsheetResult<std::unique_ptr<Workbook>> create() override;

  // Runs one piece of work with the office, within the limit. The work throws the office's exceptions, or RunTimeError:
  // this is where they become results.
  template <typename Work> auto call(const Work& work) -> SpreadsheetResult<std::invoke_result_t<Work>>
  {
    const Patience::Turn turn(m_patience);
    try {
      if constexpr (std::is_void_v<std::invoke_result_t<Work>>)
        return work(), SpreadsheetResult<void>();
      else
        return work();
    } catch (const RunTimeError& error) {
      return tl::unexpected(error);
    } catch (const com::sun::star::uno::Exception& exception) {
      return tl::unexpected(RunTimeError(RunTimeError::Automation, programText(exception.Message)));
    }
  }

  // A workbook, and the office with it, is left to the operator. Without a display it ends with this object: nobody
  // could close it.
  void handOver();
  // Leaves the office to an operator who has opened documents of their own in it: they outlive this program. Our own
  // workbooks can still be used.
  void leaveToOperator();
  // Closes a workbook of ours, unsaved.
  void close(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& workbook);
  // Whether the machine has a printer: a default one is offered even where there is none.
  bool hasPrinter() const;
  OfficeConnection& connection() { return m_connection; }

private:
  std::unique_ptr<Workbook> load(const QString& url);
  bool isExcel(const QString& url) const;
  [[nodiscard]] SpreadsheetResult<void> require();
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
