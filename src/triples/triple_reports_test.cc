#include <gtest/gtest.h>

#include <string>

#include "shell/exec.h"
#include "shell/named_objects.h"
#include "triples/my_ostream.h"
#include "triples/triple_commands.h"

namespace torvane {
namespace {

class Page : public MyOStream {
 public:
  void put(char c) override { text += c; }
  void flush() override { flushed = text; }
  std::string text, flushed;
};

TEST(TripleReports, PagesGoToANamedObject) {
  register_triple_commands();
  static Page page;
  static TripleDb db(11, 11, 0);
  db.add_triple("a b", db.feature_id("r", true), "c d", 0.1F);
  register_object("page", Value::of<MyOStream>(&page), "MyOStream");
  register_object("page-db", Value::of(&db), "TripleDb/PLHash");
  interpreter().prompt = false;
  interpreter().load_string(
      "(print-tripledb-entry-in-html page-db :words (\"a b\") :output PAGE :url \"<a href=x?\")");
  EXPECT_EQ(page.flushed,
            "<h3>a b</h3>r 0.100000 times:<br>\n\t\t<a href=x?head=%22a b%22&rel=%22r%22&modifier="
            "%22c+d%22>c d</a> 0.100000,\n<p>");
}

}  // namespace
}  // namespace torvane
