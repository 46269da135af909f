// What counts as one query that reads, and what as one condition.
#include "zvm/spatial/statement.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace zevfit::test {
namespace {

using spatial::bracketed;
using spatial::conditionRefusal;
using spatial::queryRefusal;

constexpr const char* kOther = "it does not begin with SELECT or WITH";
constexpr const char* kSeveral = "it is more than one statement";
constexpr const char* kOpen = "a quote or comment has no end";
constexpr const char* kBrackets = "its brackets do not match";

TEST(Statement, TakesOneQuery) {
  for (const char* query :
       {"select 1", "SELECT*from a", " \n-- all\nselect 1 ; ", "/* a; /* b; */ c; */ select 1",
        "with a as (select 1) select * from a", "select ';'", "select ''';'", "select \";\" from a",
        "select $$;'$$", "select $a$;$$;$a$", "select E'\\';'", "select e'a'\n'\\';'",
        "select 'a\\'", "select 1; -- ;", "select a$b$c, $1 from a", "select (1), ')'",
        "select 1 -- one\r\n, 2", "select ogr_layer_extent('a')"})
    EXPECT_EQ(queryRefusal(query), std::nullopt) << query;
}

TEST(Statement, RefusesWhatCouldWrite) {
  struct Case {
    const char* query;
    const char* reason;
  };
  const Case cases[] = {
      {"", kOther},
      {"update a set b = 1", kOther},
      {"set transaction read write; update a set b = 1", kOther},
      {"CREATE INDEX ON m USING zinc", kOther},
      {"selection", kOther},
      {"-- select\nupdate a set b = 1", kOther},
      {"select 1; update a set b = 1", kSeveral},
      {"select 1;;", kSeveral},
      {"select 1) as q; update a set b = 1; select * from (select 1", kSeveral},
      {"select 1) as q where f() = (1", kBrackets},
      {"select (1", kBrackets},
      {"select 'a", kOpen},
      {"select \"a", kOpen},
      {"select $a$ $b$", kOpen},
      {"select 1 /* a /* b */", kOpen},
      // A backslash is a letter in a text without E, and none in one with it, nor in the texts
      // that go on with that one behind a line end.
      {"select 'a\\'; drop table a; --'", kSeveral},
      {"select E'a\\\\'; drop table a; --'", kSeveral},
      {"select E'a'\n'\\' '; drop table a; --'", kSeveral},
      {"select E'a' -- b\n'\\' '; drop table a; --'", kSeveral},
      // The text of another name is none with E.
      {"select type'\\'; drop table a; --'", kSeveral},
      // Behind a number a dollar begins a text, in a name it does not.
      {"select 1$$'$$; drop table a; --'", kSeveral},
      {"select a$$ from b; drop table b; -- $$", kSeveral},
      {"select $1$ from b; drop table b; -- $1$", kSeveral},
      // Where a comment ends at a carriage return a database goes on, and another one does not.
      {"select 1 -- \r) q; commit; update a set b = 1;\n", "a comment has a carriage return"},
      {"select ogr_geocode('Rome')", "it names ogr_geocode, which could write"},
      {"select \"OGR_Geocode_Reverse\"(1, 2)", "it names ogr_geocode, which could write"},
      {"select [ogr_datasource_load_layers]('a')",
       "it names ogr_datasource_load_layers, which could write"},
      {"select load_extension('a')", "it names load_extension, which could write"},
  };
  for (const Case& one : cases) EXPECT_EQ(queryRefusal(one.query), one.reason) << one.query;
}

TEST(Statement, TakesOneConditionAlone) {
  EXPECT_EQ(conditionRefusal("zinc > 300 and name <> 'a;)'"), std::nullopt);
  EXPECT_EQ(conditionRefusal("zinc in (1, 2)"), std::nullopt);
  EXPECT_EQ(conditionRefusal("zinc > 3;"), kSeveral);
  EXPECT_EQ(conditionRefusal("true); update a set b = 1; --"), kSeveral);
  EXPECT_EQ(conditionRefusal("true) or (true"), kBrackets);
  EXPECT_EQ(conditionRefusal("a = 'b"), kOpen);
  EXPECT_EQ(conditionRefusal("ogr_geocode('a') is null"),
            "it names ogr_geocode, which could write");
}

TEST(Statement, PutsAQueryInBrackets) {
  EXPECT_EQ(bracketed("select 1 ; "), "(select 1 \n)");
  EXPECT_EQ(bracketed("select 'a'"), "(select 'a'\n)");
  EXPECT_EQ(bracketed("select 1 -- one"), "(select 1\n)");
  EXPECT_EQ(bracketed("select $$;$$;"), "(select $$;$$\n)");
}

}  // namespace
}  // namespace zevfit::test
