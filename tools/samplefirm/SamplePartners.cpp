#include "samplefirm/SamplePartners.h"

#include "samplefirm/RowWriter.h"

namespace SampleFirm {
namespace {

struct Category {
  QStringView code;
  QStringView name;
  QStringView parent;
};

constexpr Category PartnerCategories[] = {
    {u"1", u"往来单位", u"0"},         {u"101", u"供应商", u"1"},   {u"10101", u"家电供应商", u"101"}, {u"10102", u"百货供应商", u"101"},
    {u"10103", u"食品供应商", u"101"}, {u"102", u"客户", u"1"},     {u"10201", u"商场", u"102"},       {u"10202", u"超市", u"102"},
    {u"10203", u"零售店", u"102"},     {u"103", u"其他单位", u"1"}, {u"1031", u"运输物业", u"103"},    {u"1032", u"待核准单位", u"103"},
};

constexpr Partner Suppliers[] = {
    {u"G001", u"东方电器制造厂", u"10101", u"孙采购", u"开发区工业路18号", u"周经理", -86000},
    {u"G002", u"北辰家用电器公司", u"10101", u"孙采购", u"北环路220号", u"吴经理", -42500},
    {u"G003", u"新光照明器材厂", u"10101", u"孙采购", u"光明街9号", u"郑厂长", -15800},
    {u"G004", u"海川制冷设备公司", u"10101", u"马采购", u"滨海大道77号", u"王主任", -63200},
    {u"G005", u"永安日用品厂", u"10102", u"马采购", u"永安路3号", u"冯厂长", -9400},
    {u"G006", u"洁雅洗涤用品公司", u"10102", u"马采购", u"城西工业园6栋", u"陈小姐", -12600},
    {u"G007", u"金叶纸业公司", u"10102", u"马采购", u"造纸路51号", u"褚经理", -7300},
    {u"G008", u"宏达塑料制品厂", u"10102", u"孙采购", u"塑胶城B区12号", u"卫经理", -4800},
    {u"G009", u"文华文具批发部", u"10102", u"马采购", u"书院街30号", u"蒋老板", -2150},
    {u"G010", u"绿野食品公司", u"10103", u"孙采购", u"农科路8号", u"沈经理", -18900},
    {u"G011", u"清泉饮料公司", u"10103", u"孙采购", u"泉城路66号", u"韩经理", -22400},
    {u"G012", u"丰收粮油公司", u"10103", u"马采购", u"粮库街1号", u"杨主任", -31700},
    {u"G013", u"甜园糖业公司", u"10103", u"马采购", u"糖厂路15号", u"朱经理", -6600},
    {u"G014", u"南山茶叶合作社", u"10103", u"孙采购", u"南山乡", u"秦社长", -5200},
};

constexpr Partner Customers[] = {
    {u"K001", u"华联商厦", u"10201", u"赵业务", u"人民路1号", u"尤经理", 58000},
    {u"K002", u"新世纪百货大楼", u"10201", u"赵业务", u"解放路100号", u"许经理", 43600},
    {u"K003", u"友谊商场", u"10201", u"赵业务", u"友谊路25号", u"何经理", 27100},
    {u"K004", u"中心广场购物城", u"10201", u"钱业务", u"中心广场5号", u"吕经理", 36400},
    {u"K005", u"城东商场", u"10201", u"钱业务", u"东大街88号", u"施经理", 19500},
    {u"K006", u"家家乐超市", u"10202", u"钱业务", u"幸福路17号", u"张店长", 12800},
    {u"K007", u"万客来超市", u"10202", u"钱业务", u"新华路203号", u"孔店长", 16700},
    {u"K008", u"好邻居超市", u"10202", u"李业务", u"和平里12号", u"曹店长", 8300},
    {u"K009", u"惠民超市", u"10202", u"李业务", u"民主街40号", u"严店长", 6900},
    {u"K010", u"天天鲜超市", u"10202", u"李业务", u"菜市口2号", u"华店长", 11200},
    {u"K011", u"百姓超市", u"10202", u"李业务", u"南门街56号", u"金店长", 4500},
    {u"K012", u"育才文具店", u"10203", u"周业务", u"学府路7号", u"魏老板", 1800},
    {u"K013", u"明亮灯饰店", u"10203", u"周业务", u"建材街21号", u"陶老板", 3200},
    {u"K014", u"诚信电器行", u"10203", u"赵业务", u"电子街14号", u"姜老板", 9600},
    {u"K015", u"顺发电器商行", u"10203", u"赵业务", u"电子街36号", u"戚老板", 7400},
    {u"K016", u"红旗粮油店", u"10203", u"周业务", u"红旗巷8号", u"谢老板", 2600},
    {u"K017", u"一品茶庄", u"10203", u"周业务", u"茶叶街3号", u"邹老板", 3900},
    {u"K018", u"阳光便利店", u"10203", u"周业务", u"阳光花园门口", u"喻老板", 900},
    {u"K019", u"春风便利店", u"10203", u"周业务", u"春风小区11号", u"柏老板", 1150},
    {u"K020", u"大桥饭店", u"10203", u"李业务", u"大桥南路2号", u"水经理", 5300},
    {u"K021", u"第一中学", u"10203", u"李业务", u"文昌路60号", u"窦老师", 4200},
    {u"K022", u"市人民医院", u"10203", u"李业务", u"医院路10号", u"章科长", 6800},
};

constexpr Partner Others[] = {
    {u"Q001", u"顺达货运公司", u"1031", u"", u"货运站3号", u"云经理", -2400},
    {u"Q002", u"安居物业公司", u"1031", u"", u"创业大厦一楼", u"苏主任", 0},
    {u"Q003", u"远景广告公司", u"1032", u"", u"创业大厦九楼", u"潘小姐", 0},
};

constexpr Category Departments[] = {
    {u"1", u"示例商贸有限公司", u"0"}, {u"101", u"总经理办公室", u"1"}, {u"102", u"财务部", u"1"}, {u"103", u"销售一部", u"1"},
    {u"104", u"销售二部", u"1"},       {u"105", u"采购部", u"1"},       {u"106", u"仓储部", u"1"},
};

struct Person {
  QStringView code;
  QStringView name;
  QStringView department;
};

constexpr Person Staff[] = {
    {u"0101", u"林总经理", u"101"}, {u"0102", u"方秘书", u"101"}, {u"0201", u"张会计", u"102"}, {u"0202", u"李出纳", u"102"},
    {u"0203", u"陆会计", u"102"},   {u"0301", u"赵业务", u"103"}, {u"0302", u"钱业务", u"103"}, {u"0401", u"李业务", u"104"},
    {u"0402", u"周业务", u"104"},   {u"0501", u"孙采购", u"105"}, {u"0502", u"马采购", u"105"}, {u"0601", u"胡保管", u"106"},
    {u"0602", u"高保管", u"106"},
};

void writeCategories(RowWriter& rows, const char* table, std::span<const Category> categories)
{
  for (const Category& category : categories)
    rows.insert(table, {category.code, category.name, category.parent});
}

void writePartner(RowWriter& rows, const Partner& partner)
{
  const bool hasAccounts = partner.category != u"1032";
  const auto accountIfAny = [&](QStringView code) { return hasAccounts ? code : QStringView(); };
  // No two partners share a number.
  const QString digits = QString::number(partner.code.front().unicode()) + partner.code.sliced(1).toString();
  rows.insert("TabClient", {partner.code, partner.name, partner.address, QStringLiteral("0571-87") + digits, partner.linkMan,
                            QStringLiteral("91330100MA%1X8Q").arg(digits), u"城关信用社", QStringLiteral("6217001200") + digits,
                            accountIfAny(ReceivableAccount), accountIfAny(u"2203"), accountIfAny(PayableAccount), accountIfAny(u"1123"),
                            partner.salesman, partner.category, u"0"});
  rows.insert("TabClientTurn", {partner.code, u"2022-03-31", u"1", QString::number(partner.opening), u"1", u"人民币"});
}

} // namespace

std::span<const Partner> suppliers()
{
  return Suppliers;
}

std::span<const Partner> customers()
{
  return Customers;
}

std::span<const Partner> others()
{
  return Others;
}

void writePartners(RowWriter& rows)
{
  writeCategories(rows, "TabClientType", PartnerCategories);
  for (const auto group : {suppliers(), customers(), others()})
    for (const Partner& partner : group)
      writePartner(rows, partner);
  for (const Partner& supplier : Suppliers)
    rows.insert("TabProvide", {supplier.code, supplier.name, u"0", supplier.category});
}

void writeStaff(RowWriter& rows)
{
  writeCategories(rows, "TabDepartmentType", Departments);
  for (const Person& person : Staff)
    rows.insert("TabStuff", {person.code, person.name, u"0", person.department});
}

} // namespace SampleFirm
