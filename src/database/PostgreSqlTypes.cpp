#include "database/PostgreSqlTypes.h"

using namespace Qt::StringLiterals;

namespace PostgreSqlTypes {
namespace {

// Calls are schema-qualified because pg_restore runs with an empty search_path.

// A date is stored as it was written, so the type is text except for its order.
constexpr const char* DateType[] = {
    "create type zdate",
    "create function zdate_in(cstring) returns zdate as 'textin' language internal immutable strict parallel safe",
    "create function zdate_out(zdate) returns cstring as 'textout' language internal immutable strict parallel safe",
    "create function zdate_recv(internal) returns zdate as 'textrecv' language internal stable strict parallel safe",
    "create function zdate_send(zdate) returns bytea as 'textsend' language internal stable strict parallel safe",
    "create type zdate (input = zdate_in, output = zdate_out, receive = zdate_recv, send = zdate_send,"
    " internallength = variable, storage = extended, category = 'S')",
    "create cast (zdate as text) without function as implicit",
    "create cast (text as zdate) without function as assignment",
};

// The day at the start of a text as a number that grows with it; null if there is none. It accepts exactly what
// DateText::parse accepts.
constexpr char DayOf[] = R"(create function zdate_day(value text) returns integer as $body$
declare
  part text[] := regexp_match(value, '^[\s\u3000\u00a0]*(\d{4})([-/.])(\d{1,2})\2(\d{1,2})'
    '(?:[ T]\s*(?:[01]?\d|2[0-3]):[0-5]?\d(?::[0-5]?\d)?(?:\.\d{0,9})?)?[\s\u3000\u00a0]*$');
  y integer := part[1];
  m integer := part[3];
  d integer := part[4];
begin
  if part is null or y < 1 or m not between 1 and 12 or d < 1
     or d > (array[31, case when y % 4 = 0 and (y % 100 <> 0 or y % 400 = 0) then 29 else 28 end,
             31, 30, 31, 30, 31, 31, 30, 31, 30, 31])[m] then
    return null;
  end if;
  return (y * 12 + m) * 31 + d;
end $body$ language plpgsql immutable strict parallel safe)";

// Dates in order, then what is not a date, as text.
constexpr char SlowOrder[] = R"(create function zdate_slow_order(a text, b text) returns integer as $body$
declare
  daya integer := public.zdate_day(a);
  dayb integer := public.zdate_day(b);
begin
  if daya is not null and dayb is not null then
    return sign(daya - dayb);
  elsif daya is not null then
    return -1;
  elsif dayb is not null then
    return 1;
  end if;
  return case when a < b then -1 when a = b then 0 else 1 end;
end $body$ language plpgsql immutable strict parallel safe)";

// Both are dates in the short form, as nearly all are, so that they compare as texts. A list of a month compares
// thousands of times: hence one expression, and the 29th of February takes the slow path.
constexpr char AreShort[] = R"(octet_length(a::text) = 10 and (a::text || b::text) ~
  '^(?:[1-9]\d{3}-(?:(?:0[1-9]|1[0-2])-(?:0[1-9]|1\d|2[0-8])|(?:0[13-9]|1[0-2])-(?:29|30)|(?:0[13578]|1[02])-31)){2}$')";

constexpr char Order[] = R"(create function zdate_order(a zdate, b zdate) returns integer as $body$
begin
  return case when @short then case when a::text < b::text then -1 when a::text = b::text then 0 else 1 end
         else public.zdate_slow_order(a, b) end;
end $body$ language plpgsql immutable strict parallel safe)";

// plpgsql, not SQL: an SQL function would be inlined, and no index would match.
constexpr char Compare[] = R"(create function @name(a zdate, b zdate) returns boolean as $body$
begin
  return case when @short then a::text @sign b::text else public.zdate_slow_order(a, b) @sign 0 end;
end $body$ language plpgsql immutable strict parallel safe)";

struct Comparison {
  const char* name;
  const char* sign;
  const char* commutator;
  const char* negator;
  const char* estimate;
};

constexpr Comparison Comparisons[] = {
    {"zdate_lt", "<", ">", ">=", "scalarltsel"},  {"zdate_le", "<=", ">=", ">", "scalarlesel"}, {"zdate_eq", "=", "=", "<>", "eqsel"},
    {"zdate_ge", ">=", "<=", "<", "scalargesel"}, {"zdate_gt", ">", "<", "<=", "scalargtsel"},  {"zdate_ne", "<>", "<>", "=", "neqsel"},
};

QStringList comparison(const Comparison& of)
{
  const auto fill = [&of](const char* text) {
    return QString::fromLatin1(text)
        .replace(u"@name"_s, QLatin1String(of.name))
        .replace(u"@short"_s, QLatin1String(AreShort))
        .replace(u"@sign"_s, QLatin1String(of.sign))
        .replace(u"@commutator"_s, QLatin1String(of.commutator))
        .replace(u"@negator"_s, QLatin1String(of.negator))
        .replace(u"@estimate"_s, QLatin1String(of.estimate));
  };
  return {fill(Compare), fill("create operator @sign (leftarg = zdate, rightarg = zdate, function = @name, commutator = @commutator, "
                              "negator = @negator, restrict = @estimate)")};
}

constexpr const char* Ordering[] = {
    "create operator class zdate_ops default for type zdate using btree as operator 1 <, operator 2 <=, operator 3 =,"
    " operator 4 >=, operator 5 >, function 1 zdate_order(zdate, zdate)",
    "create function zdate_later(a zdate, b zdate) returns zdate as 'select case when public.zdate_order(a, b) >= 0 then a else b end'"
    " language sql immutable strict parallel safe",
    "create function zdate_earlier(a zdate, b zdate) returns zdate as 'select case when public.zdate_order(a, b) <= 0 then a else b end'"
    " language sql immutable strict parallel safe",
    "create aggregate max(zdate) (sfunc = zdate_later, stype = zdate, sortop = >)",
    "create aggregate min(zdate) (sfunc = zdate_earlier, stype = zdate, sortop = <)",
};

} // namespace

QStringList definitions()
{
  QStringList statements = {u"create extension citext"_s};
  for (const char* statement : DateType)
    statements.append(QLatin1String(statement));
  statements << QString::fromLatin1(DayOf) << QString::fromLatin1(SlowOrder)
             << QString::fromLatin1(Order).replace(u"@short"_s, QLatin1String(AreShort));
  for (const Comparison& of : Comparisons)
    statements += comparison(of);
  for (const char* statement : Ordering)
    statements.append(QLatin1String(statement));
  return statements;
}

} // namespace PostgreSqlTypes
