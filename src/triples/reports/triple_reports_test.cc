#include <gtest/gtest.h>

#include <iostream>
#include <string>

#include "shell/world.h"
#include "triples/db/triple_db.h"
#include "triples/reports/my_ostream.h"
#include "triples/reports/offers.h"

namespace torvane {
namespace {

class Page : public MyOStream {
 public:
  Page() : MyOStream(std::cout) {}
  void put(char c) override { text += c; }
  void flush() override { flushed = text; }
  std::string text, flushed;
};

TEST(TripleReports, PagesGoToANamedObject) {
  Page page;
  TripleDb db(11, 11, false);
  World world(World::Console::of_process());
  WorldScope here(world);
  enter_all(world, {&offers::entry_in_html, &offers::entry_comparison});
  db.add_triple("a b", db.feature_id("r", true), "c d", 0.1F);
  world.objects.add("page", Value::of<MyOStream>(&page), "MyOStream");
  world.objects.add("page-db", Value::of(&db), "TripleDb/PLHash");
  world.interpreter.prompt = false;
  world.interpreter.load_string(
      "(print-tripledb-entry-in-html page-db :words (\"a b\") :output PAGE :url \"<a href=x?\")");
  EXPECT_EQ(page.flushed,
            "<h3>a b</h3>r 0.100000 times:<br>\n\t\t<a href=x?head=%22a b%22&rel=%22r%22&modifier="
            "%22c+d%22>c d</a> 0.100000,\n<p>");
}

}  // namespace
}  // namespace torvane
