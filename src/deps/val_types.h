// What the values of properties can be: integers, texts, lists of texts, nodes.
#pragma once

#include "deps/props.h"

namespace torvane {

/// Null prints as 0.
class IntValue : public ValType {
 public:
  const char* name() const override { return "int"; }
  void print(std::ostream& out, Value value) const override;
  Value copy(Value value, Deps& owner) const override;
  Value parse(IRSlist* form, Deps& owner) const override;
  int compare(Value a, Value b) const override;
};

class StrValue : public ValType {
 public:
  const char* name() const override { return "char*"; }
  void print(std::ostream& out, Value value) const override;
  Value copy(Value value, Deps& owner) const override;
  Value parse(IRSlist* form, Deps& owner) const override;
  int compare(Value a, Value b) const override;
};

/// Written as a list; read from a list, or from the atoms of the rest of the form. What `list`
/// gives is one of the texts in it.
class StrListValue : public ValType {
 public:
  const char* name() const override { return "TSlist<const char*>*"; }
  void print(std::ostream& out, Value value) const override;
  Value copy(Value value, Deps& owner) const override;
  Value parse(IRSlist* form, Deps& owner) const override;
  int compare(Value a, Value b) const override;
};

/// Written and read as the node's label. A node of another tree is no value, since it may go first.
class DepTreeValue : public ValType {
 public:
  const char* name() const override { return "RSTree*"; }
  void print(std::ostream& out, Value value) const override;
  Value copy(Value value, Deps& owner) const override;
  Value parse(IRSlist* form, Deps& owner) const override;
  int compare(Value a, Value b) const override;
};

}  // namespace torvane
