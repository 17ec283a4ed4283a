#include "bills/BillTraits.h"

const BillTraits PaymentTraits{
    .form = "frmPayfund",
    .billName = u"付款单",
    .formCaption = u"付款单",
    .headerTable = "TabPayfundBill",
    .lineTable = "TabPayfundBillInf",
    .linkColumn = "BillCode",
    .prefix = "FKD",
    .billType = u"付款",
    .partnerFrame = u"供应商信息",
    .attention = u"注意：在列表中输入数据后击回车键确定！在付款帐户编号列双击可直接选择。",
    .accountCodeHeading = u"付款账户编号",
    .accountNameHeading = u"付款账户名称",
    .noLines = u"没有付款数据输入！",
    .wrongLineAccount = u"付款账户为  ",
    .duplicateCode = u"付款单编号重复，请修改！",
    .missingAtVoid = u"付款单编号不存在，作废失败！",
    .asksRightAtVoid = true,
    .dropsWriteOffs = true,
};
