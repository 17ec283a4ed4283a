#include "settlement/WriteOffQuery.h"

namespace WriteOffQuery {
namespace {

Statement whereAll(const QList<Statement>& conditions)
{
  return conditions.isEmpty() ? Statement() : Statement(u" where {}", Statement::joined(conditions, u" and "));
}

constexpr SqlLiteral LinkedColumns = u"tmpInOutBill.Code as InOutBillCode , tmpInOutBill.BillType as BillType "
                                     u",tmpInOutBill.Datee as BillDatee,tmpInOutBill.UnitCode as BillUnitCode"
                                     u",tmpInOutBill.UnitName as BillUnitName,tmpInOutBill.Remark as BillReamrk"
                                     u",tmpInOutBill.SumMoney as BillSumMoney,tmpInOutBill.YHXMoney as YHXMoney"
                                     u",tmpSFKRecordBill.HXMoney as HXMoney,tmpSFKRecordBill.HXMoney as BCHXMoney,0 as WHXMoney";

// The goods bills that the links are joined with.
Statement goodsBills(const QString& table, const QList<Statement>& conditions)
{
  return {
      u" (select Code,BillType,Datee,UnitCode,UnitName,Remark,SumMoney  ,(SumMoney-Cash-Credit) as YHXMoney   from {} {} ) tmpInOutBill",
      SqlName(table), whereAll(conditions)};
}

} // namespace

Statement openBills(const QString& table, const QList<Statement>& conditions)
{
  return {u"select       Code as InOutBillCode , BillType as BillType ,Datee as BillDatee,UnitCode as BillUnitCode"
          u",UnitName as BillUnitName,Remark as BillReamrk,SumMoney as BillSumMoney,SumMoney as YHXMoney"
          u",0 as HXMoney,0 as BCHXMoney,0 as WHXMoney from {} {}order by UnitCode,Datee ",
          SqlName(table), whereAll(conditions)};
}

Statement linksOf(const QString& SFKBillCode)
{
  return {u"select * from  TabSFKHeXiao  where SFKBillCode='{}' ", SFKBillCode};
}

Statement ownLinks(const QString& table, const QString& SFKBillCode)
{
  return {u"select      {} from {},  (select InOutBillCode,SFKBillCode, HXMoney from TabSFKHeXiao   where SFKBillCode='{}' ) "
          u"tmpSFKRecordBill  where tmpInOutBill.Code=tmpSFKRecordBill.InOutBillCode ",
          Statement(LinkedColumns), goodsBills(table, {}), SFKBillCode};
}

Statement allLinks(const QString& table, const QList<Statement>& conditions, const QString* onlyOf)
{
  return {u"select      {},tmpSFKRecordBill.SFKBillCode as SFKBillCode,tmpSFKRecordBill.SFKBillDatee as SFKBillDatee"
          u" from {},  (select InOutBillCode,SFKBillCode, HXMoney,SFKBillDatee from TabSFKHeXiao {} ) tmpSFKRecordBill   "
          u" where tmpInOutBill.Code=tmpSFKRecordBill.InOutBillCode ",
          Statement(LinkedColumns), goodsBills(table, conditions), onlyOf ? Statement(u"  where SFKBillCode='{}' ", *onlyOf) : Statement()};
}

} // namespace WriteOffQuery
