#include "settlement/BenchQuery.h"

namespace BenchQuery {
namespace {

QString whereAll(const QStringList& conditions)
{
  return conditions.isEmpty() ? QString() : " where " + conditions.join(" and ");
}

QString linkedColumns()
{
  return QString("select    ") + "  tmpInOutBill.Code as InOutBillCode " + ", tmpInOutBill.BillType as BillType " +
         ",tmpInOutBill.Datee as BillDatee" + ",tmpInOutBill.UnitCode as BillUnitCode" + ",tmpInOutBill.UnitName as BillUnitName" +
         ",tmpInOutBill.Remark as BillReamrk" + ",tmpInOutBill.SumMoney as BillSumMoney" + ",tmpInOutBill.YHXMoney as YHXMoney" +
         ",tmpSFKRecordBill.HXMoney as HXMoney" + ",tmpSFKRecordBill.HXMoney as BCHXMoney" + ",0 as WHXMoney";
}

QString goodsBills(const QString& table, const QStringList& conditions)
{
  return QString(" (select Code,BillType,Datee,UnitCode,UnitName,Remark,SumMoney ") + " ,(SumMoney-Cash-Credit) as YHXMoney " + "  from " +
         table + " " + whereAll(conditions) + " ) tmpInOutBill, ";
}

constexpr char LinkedByCode[] = " where tmpInOutBill.Code=tmpSFKRecordBill.InOutBillCode ";

} // namespace

QString openBills(const QString& table, const QStringList& conditions)
{
  return QString("select     ") + "  Code as InOutBillCode " + ", BillType as BillType " + ",Datee as BillDatee" +
         ",UnitCode as BillUnitCode" + ",UnitName as BillUnitName" + ",Remark as BillReamrk" + ",SumMoney as BillSumMoney" +
         ",SumMoney as YHXMoney" + ",0 as HXMoney" + ",0 as BCHXMoney" + ",0 as WHXMoney" + " from " + table + " " + whereAll(conditions) +
         "order by UnitCode,Datee ";
}

QString linksOf(const QString& SFKBillCode)
{
  return QString("select * from  TabSFKHeXiao ") + " where SFKBillCode='" + SFKBillCode + "' ";
}

QString ownLinks(const QString& table, const QString& SFKBillCode)
{
  return linkedColumns() + " from " + goodsBills(table, {}) + " (select InOutBillCode,SFKBillCode, HXMoney from TabSFKHeXiao " +
         "  where SFKBillCode='" + SFKBillCode + "' ) tmpSFKRecordBill " + LinkedByCode;
}

QString allLinks(const QString& table, const QStringList& conditions, const QString* onlyOf)
{
  return linkedColumns() + ",tmpSFKRecordBill.SFKBillCode as SFKBillCode" + ",tmpSFKRecordBill.SFKBillDatee as SFKBillDatee" + " from " +
         goodsBills(table, conditions) + " (select InOutBillCode,SFKBillCode, HXMoney,SFKBillDatee from TabSFKHeXiao " +
         (onlyOf ? "  where SFKBillCode='" + *onlyOf + "' " : QString()) + " ) tmpSFKRecordBill   " + LinkedByCode;
}

} // namespace BenchQuery
