// Small predicates and transformations of texts.
#pragma once

#include <string>

#include "lexp/form.h"

namespace torvane {

/// The input reversed.
class InverseStr : public TextAdaptor<InverseStr> {
 public:
  static constexpr const char* kName = "inverse";
  Value step(const char* text, Value input);
};

/// The stem, or the input if it is no plain word.
class StemWord : public TextAdaptor<StemWord> {
 public:
  static constexpr const char* kName = "stem-word";
  Value step(const char* text, Value input);
};

/// What stands behind the last white character.
class LastWord : public TextAdaptor<LastWord> {
 public:
  static constexpr const char* kName = "last-word";
  Value step(const char* text, Value input);
};

/// Without punctuation and without what an apostrophe ties to a word.
class RemovePunc : public TextAdaptor<RemovePunc> {
 public:
  static constexpr const char* kName = "remove-punc";
  Value step(const char* text, Value input);
};

class RemoveChar : public TextAdaptor<RemoveChar> {
 public:
  static constexpr const char* kName = "remove-char";
  void init(World& world, IRSlist* args) override;
  Value step(const char* text, Value input);

 private:
  bool given_ = false;
  std::string chars_;
};

/// A comparison of the texts that two expressions give; 0 on an input of 0, or when a text is
/// missing.
class TwoTexts : public BinaryFunc {
 public:
  Value eval(Value input, int type) override;

 protected:
  virtual bool holds(const char* left, const char* right) const = 0;
};

class StrEq : public Form<StrEq, TwoTexts> {
 public:
  static constexpr const char* kName = "str-eq";

 protected:
  bool holds(const char* left, const char* right) const override;
};

/// The second occurs in the first.
class StrStr : public Form<StrStr, TwoTexts> {
 public:
  static constexpr const char* kName = "strstr";

 protected:
  bool holds(const char* left, const char* right) const override;
};

/// The first is the start of the second.
class StrPrefix : public Form<StrPrefix, TwoTexts> {
 public:
  static constexpr const char* kName = "str-prefix";

 protected:
  bool holds(const char* left, const char* right) const override;
};

class StrIs : public Form<StrIs, CharPred> {
 public:
  static constexpr const char* kName = "str=";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

  bool given = false;
  std::string text;
};

class NullStr : public Form<NullStr, CharPred> {
 public:
  static constexpr const char* kName = "null-str";
  Value eval(Value input, int type) override;
};

/// Hands the words of the input to an expression one by one.
class LoopOnStr : public CharPred {
 public:
  void init(World& world, IRSlist* args) override;

  ExpPtr exp;

 protected:
  /// True at the first word for which the truth of the expression is `wanted`.
  bool any_word(const char* text, int type, bool wanted) const;

 private:
  std::string delimiters_ = " \t\n\r";
};

class ExistWord : public Form<ExistWord, LoopOnStr> {
 public:
  static constexpr const char* kName = "exist-word";
  Value eval(Value input, int type) override;
};

class AllWords : public Form<AllWords, LoopOnStr> {
 public:
  static constexpr const char* kName = "all-words";
  Value eval(Value input, int type) override;
};

/// Literal texts and the texts that expressions give, joined.
class FormatStr : public Form<FormatStr> {
 public:
  static constexpr const char* kName = "format";
  FormatStr() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 private:
  struct Part {
    bool is_literal;
    std::string literal;
    ExpPtr exp;
  };
  Array<Part> parts_;
};

class RemovePrefix : public Form<RemovePrefix, CharPred> {
 public:
  static constexpr const char* kName = "remove-prefix";
  RemovePrefix() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override { prefix = get_exp(world, args->nth(0)); }
  Value eval(Value input, int type) override;

  ExpPtr prefix;
};

}  // namespace torvane
