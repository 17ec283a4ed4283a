#include "samplefirm/SampleWares.h"

#include "samplefirm/RowWriter.h"
#include "samplefirm/SampleMoney.h"

namespace SampleFirm {
namespace {

constexpr Ware Wares[] = {
    {u"1001", u"电饭煲", u"5升", u"台", u"DFB", u"101", u"01", fen(12800), fen(16800)},
    {u"1002", u"电磁炉", u"2100瓦", u"台", u"DCL", u"101", u"02", fen(15600), fen(19900)},
    {u"1003", u"电热水壶", u"1.8升", u"个", u"DRSH", u"101", u"01", fen(4500), fen(6900)},
    {u"1004", u"落地扇", u"40厘米", u"台", u"LDS", u"101", u"02", fen(9800), fen(13900)},
    {u"1005", u"双门冰箱", u"210升", u"台", u"SMBX", u"101", u"01", fen(118000), fen(149900)},
    {u"1006", u"滚筒洗衣机", u"8公斤", u"台", u"GTXYJ", u"101", u"01", fen(165000), fen(209900)},
    {u"1007", u"节能灯泡", u"12瓦", u"只", u"JNDP", u"101", u"", fen(680), fen(1150)},
    {u"1008", u"护眼台灯", u"9瓦", u"盏", u"HYTD", u"101", u"02", fen(5200), fen(7990)},
    {u"2001", u"洗衣液", u"3公斤", u"瓶", u"XYY", u"102", u"", fen(2150), fen(2990)},
    {u"2002", u"洗洁精", u"1.5公斤", u"瓶", u"XJJ", u"102", u"", fen(780), fen(1190)},
    {u"2003", u"抽纸", u"10包装", u"提", u"CZ", u"102", u"", fen(1350), fen(1890)},
    {u"2004", u"卷纸", u"12卷装", u"提", u"JZ", u"102", u"", fen(1620), fen(2290)},
    {u"2005", u"塑料收纳箱", u"60升", u"个", u"SLSNX", u"102", u"03", fen(2480), fen(3590)},
    {u"2006", u"保温杯", u"500毫升", u"个", u"BWB", u"102", u"03", fen(3150), fen(4900)},
    {u"3001", u"东北大米", u"10公斤", u"袋", u"DBDM", u"103", u"", fen(4680), fen(5800)},
    {u"3002", u"花生油", u"5升", u"桶", u"HSY", u"103", u"", fen(7950), fen(9900)},
    {u"3003", u"白砂糖", u"1公斤", u"袋", u"BST", u"103", u"", fen(620), fen(850)},
    {u"3004", u"矿泉水", u"24瓶装", u"箱", u"KQS", u"103", u"", fen(1980), fen(2680)},
    {u"3005", u"橙汁饮料", u"12瓶装", u"箱", u"CZYL", u"103", u"", fen(3650), fen(4780)},
    {u"3006", u"绿茶", u"250克", u"盒", u"LC", u"103", u"", fen(4200), fen(6800)},
    {u"4001", u"中性笔", u"12支装", u"盒", u"ZXB", u"104", u"02", fen(1080), fen(1680)},
    {u"4002", u"复印纸", u"A4，5包", u"箱", u"FYZ", u"104", u"", fen(9600), fen(12500)},
    {u"4003", u"文件夹", u"A4", u"个", u"WJJ", u"104", u"03", fen(320), fen(580)},
    {u"4004", u"计算器", u"12位", u"个", u"JSQ", u"104", u"02", fen(2200), fen(3500)},
};

} // namespace

std::span<const Ware> wares()
{
  return Wares;
}

void writeWares(RowWriter& rows)
{
  constexpr QStringView Categories[][3] = {
      {u"1", u"商品", u"0"},       {u"101", u"家用电器", u"1"}, {u"102", u"日用百货", u"1"},
      {u"103", u"食品饮料", u"1"}, {u"104", u"办公文具", u"1"},
  };
  constexpr QStringView Warehouses[][3] = {{u"1", u"仓库", u"0"}, {u"101", u"主仓库", u"1"}, {u"102", u"门市仓库", u"1"}};
  constexpr QStringView Attributes[][2] = {{u"01", u"白色"}, {u"02", u"黑色"}, {u"03", u"蓝色"}};

  for (const auto& [code, name, parent] : Categories)
    rows.insert("TabWareType", {code, name, parent});
  for (const auto& [code, name, parent] : Warehouses)
    rows.insert("TabWarehouseType", {code, name, parent});
  for (const auto& [code, name] : Attributes)
    rows.insert("TabAttribute", {code, name, u"0"});
  for (const Ware& ware : Wares)
    rows.insert("TabWare", {ware.code, ware.name, u"0", ware.WareSpec, ware.unit, ware.mnemonic, ware.category});
}

} // namespace SampleFirm
