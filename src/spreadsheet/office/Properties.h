#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Sequence.hxx>

#include <algorithm>
#include <initializer_list>

struct Property {
  const char* name;
  com::sun::star::uno::Any value;

  template <typename Value> Property(const char* ofName, const Value& ofValue) : name(ofName), value(ofValue) {}
};

// Named arguments of a call of the office.
inline com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue> properties(std::initializer_list<Property> all)
{
  com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue> values{sal_Int32(all.size())};
  std::transform(all.begin(), all.end(), values.getArray(), [](const Property& one) {
    com::sun::star::beans::PropertyValue value;
    value.Name = rtl::OUString::createFromAscii(one.name);
    value.Value = one.value;
    return value;
  });
  return values;
}
