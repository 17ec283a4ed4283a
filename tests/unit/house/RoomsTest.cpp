#include "house/SourceTree.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

using Rooms = QMap<QString, QStringList>;

// Which rooms each room includes: neither more nor less. A room may know only rooms that stand above
// it in this list; docs/architecture.md says why.
const QList<std::pair<QString, QStringList>> Known{
    {u"platform"_s, {}},
    {u"screen"_s, {u"platform"_s}},
    {u"database"_s, {u"platform"_s}},
    {u"accountset"_s, {u"database"_s, u"platform"_s}},
    {u"spreadsheet"_s, {u"platform"_s}},
    {u"session"_s, {u"database"_s, u"platform"_s, u"screen"_s, u"spreadsheet"_s}},
    {u"ledger"_s, {u"database"_s, u"platform"_s, u"screen"_s, u"session"_s}},
    {u"vouchers"_s, {u"database"_s, u"ledger"_s, u"platform"_s, u"session"_s}},
    {u"pickers"_s, {u"database"_s, u"platform"_s, u"screen"_s, u"session"_s}},
    {u"printing"_s, {u"ledger"_s, u"platform"_s, u"screen"_s, u"session"_s, u"spreadsheet"_s}},
    {u"settlement"_s, {u"database"_s, u"ledger"_s, u"pickers"_s, u"platform"_s, u"printing"_s, u"screen"_s, u"session"_s}},
    {u"bills"_s,
     {u"database"_s, u"ledger"_s, u"pickers"_s, u"platform"_s, u"printing"_s, u"screen"_s, u"session"_s, u"settlement"_s, u"vouchers"_s}},
    {u"desktop"_s, {u"screen"_s}},
    {u"program"_s, {u"bills"_s, u"desktop"_s, u"platform"_s, u"session"_s, u"settlement"_s}},
};

// The same, from the #include lines.
Rooms roomsIncludedBy(const QList<SourceTree::File>& files)
{
  QMap<QString, QSet<QString>> sets;
  for (const SourceTree::File& file : files) {
    if (!file.isUnder(u"src"_s) || !(file.isHeader() || file.isSource()))
      continue;
    const QString room = file.path.section(u'/', 1, 1);
    sets[room];
    for (const QString& include : SourceTree::includes(file))
      if (include.contains(u'/') && include.section(u'/', 0, 0) != room)
        sets[room].insert(include.section(u'/', 0, 0));
  }
  Rooms rooms;
  for (auto set = sets.cbegin(); set != sets.cend(); ++set) {
    QStringList names = set.value().values();
    names.sort();
    rooms[set.key()] = names;
  }
  return rooms;
}

} // namespace

TEST(Rooms, IncludeExactlyTheRoomsTheyAreKnownToInclude)
{
  Rooms known;
  for (const auto& [room, others] : Known)
    known[room] = others;
  const Rooms real = roomsIncludedBy(SourceTree::files());
  for (auto room = real.cbegin(); room != real.cend(); ++room)
    EXPECT_EQ(room.value().join(u' '), known.value(room.key()).join(u' ')) << shown(room.key());
  EXPECT_EQ(real.keys().join(u' '), known.keys().join(u' '));
}

TEST(Rooms, KnowOnlyRoomsBelowThem)
{
  QStringList below;
  for (const auto& [room, others] : Known) {
    for (const QString& other : others)
      EXPECT_TRUE(below.contains(other)) << shown(room + u" knows "_s + other);
    below.append(room);
  }
}

TEST(Rooms, AreReadFromTheIncludes)
{
  const QList<SourceTree::File> files{{u"src/a/A.h"_s, u"#include \"a/B.h\"\n#include <QString>\n"_s},
                                      {u"src/a/A.cpp"_s, u"#include \"a/A.h\"\n#include \"b/B.h\"\n// #include \"c/C.h\"\n"_s},
                                      {u"tests/x/X.cpp"_s, u"#include \"d/D.h\"\n"_s}};
  EXPECT_EQ(roomsIncludedBy(files), (Rooms{{u"a"_s, {u"b"_s}}}));
}
