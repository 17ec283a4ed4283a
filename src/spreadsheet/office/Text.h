#pragma once

#include <QString>

#include <rtl/ustring.hxx>

// Texts of the program as the office has them, and back.

inline rtl::OUString officeText(QStringView text)
{
  return rtl::OUString(reinterpret_cast<const sal_Unicode*>(text.utf16()), sal_Int32(text.size()));
}

inline QString programText(const rtl::OUString& text)
{
  return QString(reinterpret_cast<const QChar*>(text.getStr()), text.getLength());
}
