#include "lexp/stream_forms.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "lexp/expression_run.h"
#include "lexp/variables.h"

namespace torvane {
namespace {

class StreamFormsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new std::string(testing::TempDir() + "streams" + std::to_string(getpid()) + "/");
  }
  static void TearDownTestSuite() {
    EXPECT_EQ(system(("rm -r " + *folder_).c_str()), 0);
    delete folder_;
  }
  void SetUp() override { EXPECT_EQ(system(("mkdir -p " + *folder_).c_str()), 0); }

  /// Runs forms in which "DIR/" stands for a folder of the test's own.
  std::string run(std::string text) {
    for (std::size_t i; (i = text.find("DIR/")) != std::string::npos;) text.replace(i, 4, *folder_);
    return run_.run(text);
  }
  static std::string content(const std::string& name) {
    std::stringstream text;
    text << std::ifstream(*folder_ + name).rdbuf();
    return text.str();
  }
  static void write(const std::string& name, const std::string& text) {
    std::ofstream(*folder_ + name) << text;
  }

  static std::string* folder_;
  ExpressionRun run_;
};

std::string* StreamFormsTest::folder_ = nullptr;

TEST_F(StreamFormsTest, OutputsOfOneNameAreOneStream) {
  run("(foreach (a b) :eval (prog (print-str (output DIR/shared) :suffix 1)"
      " (print-str :suffix 2 (output DIR/shared)) (pad P :prefix < :suffix > (output "
      "DIR/shared))))");
  EXPECT_EQ(run_.errors(),
            "The named object '" + *folder_ + "shared' (type=OutputStrmPtr) is not found\n");
  run("(flush DIR/shared)");
  EXPECT_EQ(content("shared"), "a1a2<P>b1b2<P>");
  // A name in use for output is no input.
  run("(eval (input DIR/shared)) (flush DIR/none) (flush)");
  EXPECT_NE(run_.errors().find("not the expected type 'InputStrmPtr'"), std::string::npos);
}

TEST_F(StreamFormsTest, ClosingASharedStreamOnlyFlushes) {
  run("(declare-var s) (eval (setq s (output DIR/kept))) (foreach (x y) :eval"
      " (prog (print-str (get-val s)) (get-val s (close-file))))");
  EXPECT_EQ(content("kept"), "xy");
  run_.errors();
  EXPECT_EQ(run("(eval (comp (output) (close-file))) (eval (comp (input -) (close-file)))"
                "(eval (print-str (output -) :prefix still))"),
            "still");
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(StreamFormsTest, AClosedStreamIsHarmless) {
  run("(declare-var c) (foreach (DIR/closed) :eval (setq c (open-file :write)))"
      "(foreach (text) :eval (prog (print-str (get-val c)) (get-val c (close-file))"
      " (print-str (get-val c)) (flush-output (get-val c)) (get-val c (close-file))))"
      "(def-tokenizer :name reader \" \" \"\" \"\" \"\" \"\" \"\")"
      "(eval (set-tokenizer-input reader (get-val c)))");
  EXPECT_EQ(content("closed"), "text");
  EXPECT_EQ(run_.errors(), "");
  EXPECT_EQ(run("(foreach (wrong) :eval (close-file)) (eval (comp (int 7) (ident) (close-file)))"),
            "");
}

TEST_F(StreamFormsTest, CloseFileRefusesAStreamOfKnownType) {
  run("(foreach (DIR/typed) :eval (open-file :write (close-file)))");
  EXPECT_EQ(run_.errors().substr(0, 54), "close-file received a wrong type of argument:'stream*'");
}

TEST_F(StreamFormsTest, OpeningMakesTheDirectoriesOfItsPath) {
  run("(foreach (DIR/a/b//c) :eval (prog (print-str (open-file :write)) (ident)))");
  EXPECT_EQ(access((*folder_ + "a/b/c").c_str(), F_OK), 0);
  run("(foreach (DIR/x\\y) :eval (open-file :write))");
  EXPECT_EQ(access((*folder_ + "x\\y").c_str(), F_OK), 0);
  // An input is no output; what fails to open is a stream all the same.
  EXPECT_EQ(run("(foreach (DIR/missing) :eval (if (open-file) (print-str (open-file) :prefix a)"
                " (print-str :prefix none)))"),
            "");
  EXPECT_EQ(run("(eval (if (open-file) (print-str :prefix some) (print-str :prefix none)))"),
            "none(null)");
}

TEST_F(StreamFormsTest, TokenizersTakeStreamsAndTexts) {
  write("in", "one two\nthree\n");
  run("(def-tokenizer :name t \" \\n\" \"\" \"\" \"\" \"\" \"\") (declare-var in)");
  run("(foreach (DIR/in) :eval (setq in (open-file)))");
  run("(eval (set-tokenizer-input t (get-val in)))");
  EXPECT_EQ(
      run("(foreach (\"zero\") :eval (comp (contain-tokens :tokenizer t (two)) (print-str)))"),
      "two");
  run("(eval (set-tokenizer-string-input t (str \"x two\"))) (eval (set-tokenizer-string-input t))"
      "(eval (set-tokenizer-string-input (set-tokenizer-input t (get-val in)) (str x)))"
      "(eval (set-tokenizer-input none (str x))) (eval (set-tokenizer-string-input (t) (str x)))");
  EXPECT_EQ(run_.errors(), "The named object 'none' (type=Tokenizer) is not found\n");
}

TEST_F(StreamFormsTest, InputsOfOneNameAreOneStream) {
  write("lines", "first\nsecond\n");
  auto one = LExp::get_exp_from_text(("(input " + *folder_ + "lines)").c_str());
  auto two = one->copy();
  auto* record = find_var("none") ? nullptr : two->eval(Value(), kAnyType).as<Stream>();
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(one->eval(Value(), kAnyType).as<Stream>(), record);
  std::string line;
  std::getline(*record->in(), line);
  one.reset();
  two.reset();
  auto three = LExp::get_exp_from_text(("(input " + *folder_ + "lines)").c_str());
  std::getline(*three->eval(Value(), kAnyType).as<Stream>()->in(), line);
  EXPECT_EQ(line, "second");
  run_.errors();
  run("(eval (input DIR/nothing))");
  EXPECT_EQ(run_.errors(), "The named object '" + *folder_ +
                               "nothing' (type=InputStrmPtr) is not found\nCan't open file: " +
                               *folder_ + "nothing\n");
}

TEST_F(StreamFormsTest, WritingAWholeFile) {
  write("whole", "a long old content\n");
  EXPECT_EQ(
      run("(foreach (new) :eval (comp (write-to-file :mode append (str DIR/whole)) (print-str)))"),
      "new");
  EXPECT_EQ(content("whole"), "new");
  EXPECT_EQ(run("(foreach (new) :eval (comp (write-to-file (str DIR/no/folder)) (print-str)))"),
            "new");
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(StreamFormsTest, PrintingOnStandardOutput) {
  EXPECT_EQ(run("(foreach (w) :eval (prog (print-str (nil)) (print-str :prefix a (nil) :suffix b)"
                " (print-str :prefix (t) (output)) (pad + :prefix - x)))"),
            "wawbw-+");
  EXPECT_EQ(run("(eval (print-str (output))) (eval (pad + (output))) (eval (print-str))"),
            "+(null)");
}

}  // namespace
}  // namespace torvane
