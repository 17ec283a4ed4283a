#pragma once

#include "bills/LineBillForm.h"

// One form for two bills with the same fields, the expense and the other income: lines by account,
// and how much of their total went by cash and how much by bank. No partner. Which of the two it is
// follows the order at the start, and the table of a bill that is shown.
class frmFeeElseIncome : public LineBillForm {
  Q_OBJECT

public:
  explicit frmFeeElseIncome(Session& ofSession);

  void frm_Initialize(bool keepScreen) override;
  void FillBill(const QString& table, const QString& code) override;

protected:
  void Form_Load() override;
  QList<SaveCheck> saveChecks() const override;
  QList<Statement> headerValues() const override;
  void fillOwnFields(const Recordset& header) override;
  void clearOwnFields() override;
  void takeAccount(const PickedNode& account) override;
  // The lines of these bills are not printed.
  ModSavePrintData::PrintGrid printedGrid() const override { return {}; }
  Control& firstField() override { return *TxtSaleMan; }

private:
  // The cash or the bank part of the total.
  struct Payment {
    const char16_t* target;  // where the picker's choice goes
    const char16_t* missing; // refusals: no account, no such account
    const char16_t* wrong;
    const char* accounts; // how the codes of its accounts begin
    TextBox* amount = nullptr;
    TextBox* code = nullptr;
    TextBox* name = nullptr;
  };
  struct PaymentNames {
    const char* amount;
    const char* code;
    const char* name;
    const char* pick;
  };

  void buildPayment(Payment& payment, const PaymentNames& names);
  void pickAccount(const Payment& payment);
  bool nameKey(Payment& payment, const Key& key);
  bool accountIsGiven(Payment& payment);
  bool cashAccountIsGiven() { return accountIsGiven(m_cash); }
  bool bankAccountIsGiven() { return accountIsGiven(m_bank); }
  bool amountsBalance();
  bool newCodeHasPrefix() { return IsSavedBill || codeHasPrefix(); }

  Container* FramePay = nullptr;
  Payment m_cash{u"现金", u"请选择现金科目！", u"现金科目名称不正确（原因：名称不存在或不是处于最末级），请重新选择！", "1001"};
  Payment m_bank{u"银行存款", u"请选择银行科目！", u"银行科目名称不正确（原因：名称不存在或不是处于最末级），请重新选择！", "1002"};
};
