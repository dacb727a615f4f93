#include "shell/exec.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "shell/file_search.h"
#include "shell/macro.h"
#include "shell/named_objects.h"
#include "shell/object_factory.h"

namespace torvane {
namespace {

std::string seen;
Value see(IRSlist* form) {
  while (const char* text = form->get_str_val()) seen += text;
  seen += ';';
  return Value::integer(static_cast<Word>(seen.size()));
}
Value see_louder(IRSlist*) {
  seen += '!';
  return Value();
}

struct Output {
  std::string out;
  std::string err;
};
template <class Body>
Output output_of(Body body) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  body();
  std::cout.flush();
  Output output;
  output.out = testing::internal::GetCapturedStdout();
  output.err = testing::internal::GetCapturedStderr();
  return output;
}

class ExecTest : public testing::Test {
 protected:
  ExecTest() {
    seen.clear();
    exec.prompt = false;
    if (!exec.find("see")) exec.define("see", see, "(see <words>)");
    register_macro_commands();
  }
  Exec& exec = interpreter();
};

TEST_F(ExecTest, KeepsTheFirstDefinition) {
  EXPECT_EQ(output_of([&] { exec.define("SEE", see_louder, nullptr); }).err,
            "Duplicate definition of SEE\n");
  exec.load_string("(see a)");
  exec.redefine("See", see_louder, nullptr);
  exec.load_string("(see a)");
  exec.redefine("see", see, nullptr);
  EXPECT_EQ(seen, "a;!");
  EXPECT_EQ(exec.find(nullptr), nullptr);
}

TEST_F(ExecTest, PromptsOncePerForm) {
  exec.prompt = true;
  Output output = output_of([&] { exec.load_string("(see a) (see b)"); });
  // One for each form, and one that meets the end.
  EXPECT_EQ(output.out, "> > > \n");
  EXPECT_EQ(seen, "a;b;");
  exec.load_string("(defmacro quiet () (see c))");
  EXPECT_EQ(output_of([&] { exec.load_string("(quiet)"); }).out, "> > \n");
  EXPECT_TRUE(exec.prompt);
}

TEST_F(ExecTest, GivesTheLastResult) {
  IRSlistReader reader;
  EXPECT_EQ(exec.eval_all(*reader.start_string("((see a) (see b))")).number(), 4);
  EXPECT_FALSE(exec.eval_all(*reader.start_string("()")));
  EXPECT_FALSE(exec.eval(*reader.start_string("()")));
  EXPECT_FALSE(exec.eval(*reader.start_string("atom ")));
  EXPECT_EQ(exec.eval(*reader.start_string("(quote see)")).text(), std::string("see"));
  EXPECT_TRUE(exec.eval(*reader.start_string("(quote (see))")));
}

TEST_F(ExecTest, ExpandsMacrosInKeptForms) {
  exec.load_string("(defmacro both (x) (see x) (see x))");
  IRSlistReader reader;
  exec.eval_all(*reader.start_string("((both 1) (see 2))"));
  EXPECT_EQ(seen, "1;1;2;");
}

TEST_F(ExecTest, ReadsWithItsTokenizersClasses) {
  Exec own(std::make_unique<Tokenizer>(" ", "<>", "<>", "", 0, 0, 64, 64), '<', '>');
  own.prompt = false;
  own.define("see", see, nullptr);
  EXPECT_EQ(output_of([&] { own.load_string("<see (a) \"b\"> <SEE x>"); }).err, "");
  EXPECT_EQ(seen, "(a)\"b\";x;");
  EXPECT_EQ(&interpreter(), &exec);
}

TEST(Macro, LeavesOtherFormsAlone) {
  IRSlistReader reader;
  EXPECT_FALSE(expand_macro(*reader.start_string("(nomacro x)")));
  EXPECT_EQ(reader.current()->length(), 2);
  EXPECT_FALSE(expand_macro(*reader.start_string("()")));
  EXPECT_FALSE(expand_macro(*reader.start_string("((both) 1)")));
}

struct Gadget {
  int n = 0;
};
constexpr TypeTag kGadget{"Gadget*"};

}  // namespace

template <>
struct ValueTraits<Gadget> : TagOf<Gadget, kGadget> {};

namespace {

TEST(NamedObjects, FindsByAnyLevelOfTheType) {
  static Gadget gadget;
  std::string name = "Thing";
  EXPECT_TRUE(register_object(name.c_str(), Value::of(&gadget), "Gadget/Tool"));
  name = "changed";
  EXPECT_EQ(find_object_as<Gadget>("THING", "Tool", true), &gadget);
  EXPECT_EQ(find_object_as<Gadget>("thing", "Gadget", true), &gadget);
  Output output = output_of([&] {
    EXPECT_FALSE(find_object("thing", "gadget", false));
    EXPECT_FALSE(find_object("thing", nullptr, true));
    EXPECT_FALSE(find_object("nothing", "Tool", false));
    EXPECT_FALSE(find_object(nullptr, "Tool", true));
    EXPECT_FALSE(register_object("thing", Value(), "Other"));
  });
  EXPECT_EQ(
      output.err,
      "The named object 'thing' is of the type 'Gadget/Tool', not the expected type 'gadget'\n"
      "The named object 'thing' (type=) is not found\n"
      "The named object '' (type=Tool) is not found\n"
      "Duplicate definition of thing\n");
}

TEST(NamedObjects, HasTheComparisonsFromTheStart) {
  auto* bytes = find_object_as<NamedComparison>("STRCMP", "function", true);
  auto* folded = find_object_as<NamedComparison>("strcasecmp", "function", true);
  ASSERT_TRUE(bytes && folded);
  EXPECT_NE(bytes->compare("a", "A"), 0);
  EXPECT_EQ(folded->compare("a", "A"), 0);
}

TEST(ObjFactory, ReportsAnUnknownFamilyAndKeepsTheFirstPrototype) {
  ObjFactory::add_family("TestFamily", "A title", nullptr);
  Output output = output_of([&] {
    EXPECT_TRUE(ObjFactory::proto("testfamily", "one", Value::integer(1), "(one)"));
    EXPECT_FALSE(ObjFactory::proto("TestFamily", "ONE", Value::integer(2), "(two)"));
    EXPECT_FALSE(ObjFactory::proto("NoFamily", "one", Value::integer(1), nullptr));
    ObjFactory::list_objects(std::cout, nullptr, "^TestF");
  });
  EXPECT_EQ(output.err, "Duplicate definition of ONE\nObjFactory::proto no maker for 'NoFamily'\n");
  EXPECT_EQ(output.out, "one\n(one)\n\n");
  EXPECT_EQ(ObjFactory::family("TESTFAMILY")->find("one")->value.number(), 1);
}

class FilesTest : public testing::Test {
 protected:
  FilesTest() : old_folder_(std::filesystem::current_path()) {
    folder_ = std::filesystem::temp_directory_path() / ("files_test" + std::to_string(getpid()));
    std::filesystem::create_directories(folder_ / "data" / "sub");
    std::filesystem::current_path(folder_);
    std::ofstream("data/sub/file.txt") << "text";
    clear_search_path();
    set_search_path("./data;;./last");
  }
  ~FilesTest() override {
    std::filesystem::current_path(old_folder_);
    std::filesystem::remove_all(folder_);
    clear_search_path();
  }

 private:
  std::filesystem::path old_folder_;
  std::filesystem::path folder_;
};

TEST_F(FilesTest, TellsTheFolderOfWhatItFound) {
  EXPECT_EQ(find_file("sub/file.txt"), "./data/sub/file.txt");
  EXPECT_EQ(found_dir(), "./data/sub/");
  std::ofstream("plain.txt") << "";
  EXPECT_EQ(find_file("plain.txt"), "plain.txt");
  EXPECT_EQ(found_dir(), "");
  std::string absolute = std::filesystem::absolute("plain.txt").string();
  EXPECT_EQ(find_file(absolute.c_str()), absolute);
  EXPECT_EQ(found_dir(), absolute.substr(0, absolute.size() - 9));
  EXPECT_FALSE(find_file("file.txt"));
  EXPECT_EQ(found_dir(), "");
  EXPECT_EQ(output_of([] { EXPECT_FALSE(open_file(nullptr)); }).err,
            "The file  cannot be opened\n");
}

TEST_F(FilesTest, ExpandsTheEnvironment) {
  setenv("TORVANE_TEST", "sub", 1);
  unsetenv("TORVANE_NONE");
  EXPECT_EQ(find_file("$(TORVANE_TEST)/$(TORVANE_NONE)file.txt"), "./data/sub/file.txt");
  EXPECT_EQ(output_of([] { EXPECT_FALSE(find_file("a$b")); }).err, "syntax error in a$b\n");
}

TEST_F(FilesTest, StreamsCloseOnlyWhatIsTheirs) {
  Ref<Stream> out = make_ostream("out.txt");
  *out->out() << "x";
  out->shared_by_name = true;
  out->close();
  EXPECT_TRUE(out->good());
  Ref<Stream> in = input_stream("out.txt");
  EXPECT_TRUE(in->good());
  EXPECT_EQ(in->in()->get(), 'x');
  in->close();
  EXPECT_EQ(in->in(), nullptr);
  EXPECT_FALSE(in->good());
  EXPECT_TRUE(input_stream("-x")->is_standard());
  EXPECT_TRUE(make_ostream(nullptr)->is_standard());
  Stream::standard_output()->close();
  EXPECT_TRUE(Stream::standard_output()->good());
  EXPECT_EQ(output_of([] { EXPECT_FALSE(make_ostream("no/folder")); }).err,
            "make_ostream: cannot open the file 'no/folder'\n");
  EXPECT_FALSE(Stream::open_input("data")->good());
}

}  // namespace
}  // namespace torvane
