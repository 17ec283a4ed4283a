#include "samplefirm/SampleChart.h"

#include "samplefirm/RowWriter.h"

#include <algorithm>

namespace SampleFirm {
namespace {

constexpr auto Debit = Account::Side::Debit;
constexpr auto Credit = Account::Side::Credit;
constexpr auto Partner = Account::Tracks::Partner;
constexpr auto Person = Account::Tracks::Person;
constexpr auto Department = Account::Tracks::Department;

constexpr Account Chart[] = {
    {u"1", u"资产", Debit},
    {u"1001", u"库存现金", Debit},
    {u"1002", u"银行存款", Debit},
    {u"100201", u"基本存款户", Debit},
    {u"100202", u"一般存款户", Debit},
    {u"100203", u"美元存款户", Debit},
    {u"100204", u"纳税专户", Debit},
    {u"100205", u"旧存款户", Debit, Account::Tracks::Nothing, true},
    {u"1012", u"其他货币资金", Debit},
    {u"101201", u"银行汇票存款", Debit},
    {u"101202", u"在途资金", Debit},
    {u"1101", u"交易性金融资产", Debit},
    {u"1121", u"应收票据", Debit},
    {u"1122", u"应收账款", Debit, Partner},
    {u"1123", u"预付账款", Debit, Partner},
    {u"1131", u"应收股利", Debit},
    {u"1132", u"应收利息", Debit},
    {u"1221", u"其他应收款", Debit, Person},
    {u"1231", u"坏账准备", Credit},
    {u"1402", u"在途物资", Debit},
    {u"1405", u"库存商品", Debit},
    {u"1406", u"发出商品", Debit},
    {u"1411", u"周转材料", Debit},
    {u"1471", u"存货跌价准备", Credit},
    {u"1511", u"长期股权投资", Debit},
    {u"1601", u"固定资产", Debit},
    {u"1602", u"累计折旧", Credit},
    {u"1604", u"在建工程", Debit},
    {u"1606", u"固定资产清理", Debit},
    {u"1701", u"无形资产", Debit},
    {u"1702", u"累计摊销", Credit},
    {u"1801", u"长期待摊费用", Debit},
    {u"1901", u"待处理财产损溢", Debit},
    {u"2", u"负债", Credit},
    {u"2001", u"短期借款", Credit},
    {u"2201", u"应付票据", Credit},
    {u"2202", u"应付账款", Credit, Partner},
    {u"2203", u"预收账款", Credit, Partner},
    {u"2211", u"应付职工薪酬", Credit},
    {u"221101", u"工资", Credit},
    {u"221102", u"社会保险费", Credit},
    {u"221103", u"福利费", Credit},
    {u"2221", u"应交税费", Credit},
    {u"222101", u"应交增值税", Credit},
    {u"22210101", u"进项税额", Debit},
    {u"22210102", u"已交税金", Debit},
    {u"22210103", u"销项税额", Credit},
    {u"222102", u"未交增值税", Credit},
    {u"222103", u"应交所得税", Credit},
    {u"222104", u"应交城市维护建设税", Credit},
    {u"222105", u"应交教育费附加", Credit},
    {u"222106", u"应交个人所得税", Credit},
    {u"2231", u"应付利息", Credit},
    {u"2232", u"应付股利", Credit},
    {u"2241", u"其他应付款", Credit},
    {u"2501", u"长期借款", Credit},
    {u"2701", u"长期应付款", Credit},
    {u"3", u"共同", Debit},
    {u"3001", u"清算资金往来", Debit},
    {u"3002", u"货币兑换", Debit},
    {u"4", u"所有者权益", Credit},
    {u"4001", u"实收资本", Credit},
    {u"4002", u"资本公积", Credit},
    {u"4101", u"盈余公积", Credit},
    {u"410101", u"法定盈余公积", Credit},
    {u"410102", u"任意盈余公积", Credit},
    {u"4103", u"本年利润", Credit},
    {u"4104", u"利润分配", Credit},
    {u"410401", u"提取法定盈余公积", Credit},
    {u"410402", u"未分配利润", Credit},
    {u"5", u"成本", Debit},
    {u"5001", u"生产成本", Debit},
    {u"500101", u"直接材料", Debit},
    {u"500102", u"直接人工", Debit},
    {u"5101", u"制造费用", Debit},
    {u"5201", u"劳务成本", Debit},
    {u"6", u"损益", Credit},
    {u"6001", u"主营业务收入", Credit},
    {u"600101", u"商品销售收入", Credit},
    {u"600102", u"代销收入", Credit},
    {u"6051", u"其他业务收入", Credit},
    {u"605101", u"租金收入", Credit},
    {u"605102", u"服务收入", Credit},
    {u"6061", u"汇兑损益", Credit},
    {u"6111", u"投资收益", Credit},
    {u"6301", u"营业外收入", Credit},
    {u"630101", u"罚款收入", Credit},
    {u"630102", u"赔款收入", Credit},
    {u"630103", u"废品变卖收入", Credit},
    {u"6401", u"主营业务成本", Debit},
    {u"6402", u"其他业务成本", Debit},
    {u"6403", u"税金及附加", Debit},
    {u"6601", u"销售费用", Debit},
    {u"660101", u"运输费", Debit, Department},
    {u"660102", u"广告费", Debit, Department},
    {u"660103", u"包装费", Debit, Department},
    {u"660104", u"业务招待费", Debit, Department},
    {u"660105", u"差旅费", Debit, Department},
    {u"660106", u"促销费", Debit, Department},
    {u"6602", u"管理费用", Debit},
    {u"660201", u"办公费", Debit, Department},
    {u"660202", u"水电费", Debit, Department},
    {u"660203", u"房租", Debit, Department},
    {u"660204", u"电话费", Debit, Department},
    {u"660205", u"差旅费", Debit, Department},
    {u"660206", u"修理费", Debit, Department},
    {u"660207", u"折旧费", Debit, Department},
    {u"6603", u"财务费用", Debit},
    {u"660301", u"利息支出", Debit},
    {u"660302", u"手续费", Debit},
    {u"660303", u"利息收入", Credit},
    {u"6711", u"营业外支出", Debit},
    {u"6801", u"所得税费用", Debit},
};

bool isClass(QStringView code)
{
  return code.size() == 1;
}

QStringView parentOf(QStringView code)
{
  if (isClass(code))
    return u"0";
  return code.size() == 4 ? code.first(1) : code.chopped(2);
}

QStringView flag(bool on)
{
  return on ? u"1" : u"0";
}

} // namespace

const Account& account(QStringView code)
{
  return *std::ranges::find(Chart, code, &Account::code);
}

QString fullName(QStringView code)
{
  const QStringView parent = parentOf(code);
  const QString name = account(code).name.toString();
  return isClass(code) || isClass(parent) ? name : fullName(parent) + u'>' + name;
}

void writeChart(RowWriter& rows)
{
  using Tracks = Account::Tracks;
  for (const Account& row : Chart)
    rows.insert("TabAccountantType", {row.code, parentOf(row.code), row.name, fullName(row.code), row.side == Debit ? u"借" : u"贷",
                                      flag(row.tracks == Tracks::Partner), flag(row.tracks == Tracks::Department),
                                      flag(row.tracks == Tracks::Person), u"0", flag(row.closed)});
}

} // namespace SampleFirm
