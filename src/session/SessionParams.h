#pragma once

#include <QDate>
#include <QString>

// The session as the starting program hands it over in SysPar.dll: account set, operator, date, operation. Filled
// once before any screen exists and only read afterwards. The fields have the names of the file's keys.
struct SessionParams {
  QString SoftType;
  qint16 OperatorsNum = 0;
  QString DatabaseType; // "SQL", "Access" or "Access2": selects the connection
  QString VisionNum;
  QString VisionType; // edition of the suite
  QString AccountVisionType;
  qint16 AccountVisionClass = 0;
  QString LoginType;
  QString CalCostType;
  bool IsJXC = false; // inventory and finance kept apart: no vouchers
  bool demoData = false;
  bool IsAccessSQL = false; // which SQL dialect
  bool IsLotMoney = false;  // multi-currency accounting
  QString ConDataName;
  QString ConDataRemark;
  QString PrintModleName;
  QString ConDataBaseUID;
  QString ConDataBasePWD;
  QString ConServerIP;
  QString ConPortNum;
  QString OperateType;
  QString UserName;
  QString UserPSW;
  qint16 UserNum = 0;
  QDate OperateDate; // valid once the file is read
  QString CloudAccount;
  QString CloudAccount2;
  QString OperationsDirective;
  QString OperationsDirective2;
  QString OperationsDirective3;
  QString OperationsDirective4;
  QString OperationsDirective5;
};
