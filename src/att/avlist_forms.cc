// The forms that move vectors in and out of list attributes.
#include "att/att_pred.h"
#include "att/attributes.h"
#include "att/offers.h"

namespace torvane {

namespace {

// Forms with an optional `:interpreter` that names their type.
class AvListForm : public AttPred {
 protected:
  static AttInterpreterList* take_type(World& world, IRSlist& args) {
    const char* named = args.take_keyword_str(":interpreter");
    AttInterpreterList* type = named ? find_att_list(world, named) : nullptr;
    return type ? type : attributes(world).current;
  }
  static int take_att(const AttInterpreterList* type, IRSlist& args) {
    return find_att(type, args.get_str_val());
  }
  static bool is_list(const AttVec& vec, int index) {
    return vec.interpreters && as_list_att(vec.interpreters->at(index));
  }
  /// The elements of an attribute, private to the vector; null if there are none.
  static Array<Ref<AttVec>>* elements(AttVec& vec, int index) {
    if (index < 0) return nullptr;
    AttVecList* list = vec.own_list(index);
    return list && list->length() > 0 ? &list->vecs : nullptr;
  }
  /// The same, of a list attribute that has a list made for it if it has none.
  static Array<Ref<AttVec>>& elements_to_fill(AttVec& vec, int index) {
    if (!vec.own_list(index)) {
      Ref<AttVecList> list = AttVecList::make();
      vec.set(index, reinterpret_cast<AttWord>(list.get()));
    }
    return vec.own_list(index)->vecs;
  }
};

class DeleteFromAvList : public Form<DeleteFromAvList, AvListForm> {
 public:
  static constexpr const char* kName = "delete-from-avlist";
  static constexpr const char* kUsage =
      "`(delete-from-avlist att)` removes the first vector of a list attribute";
  void init(World& world, IRSlist* args) override {
    AttInterpreterList* type = take_type(world, *args);
    att_ = take_att(type, *args);
  }

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    auto* list = elements(vec, att_);
    if (!list) return {};
    // Kept: deleted-list-stays
    list->remove_at(0);
    return input;
  }

 private:
  int att_ = -1;
};

class MoveAtt : public Form<MoveAtt, AvListForm> {
 public:
  static constexpr const char* kName = "move-att";
  static constexpr const char* kUsage =
      "`(move-att from to)` moves the first vector of one list attribute to the end of another";
  void init(World& world, IRSlist* args) override {
    AttInterpreterList* type = take_type(world, *args);
    from_ = take_att(type, *args);
    to_ = take_att(type, *args);
  }

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    auto* from = elements(vec, from_);
    if (!from || !is_list(vec, to_)) return {};
    Ref<AttVec> first = (*from)[0];
    from->remove_at(0);
    elements_to_fill(vec, to_).append(std::move(first));
    if (!elements(vec, from_)) vec.undefine(from_);
    return input;
  }

 private:
  int from_ = -1;
  int to_ = -1;
};

// Forms that put a copy of a vector into a list.
class AvListInsertion : public AvListForm {
 public:
  void init(World& world, IRSlist* args) override {
    AttInterpreterList* type = take_type(world, *args);
    att_ = take_att(type, *args);
    exp_ = take_exp(world, *args);
  }

 protected:
  Value apply(AttVec& vec, Value input, int input_type) override {
    if (!accepts_at(vec)) return {};
    AttVec* made = exp_.eval(input, input_type).as<AttVec>();
    if (!made || !accepts_at(vec)) return {};  // the expression may have changed the vector
    insert(vec, make_ref<AttVec>(*made));
    return input;
  }
  virtual bool accepts_at(AttVec& vec) = 0;
  virtual void insert(AttVec& vec, Ref<AttVec> made) = 0;

  int att_ = -1;

 private:
  ExpPtr exp_;
};

class InsertIntoAvList : public Form<InsertIntoAvList, AvListInsertion> {
 public:
  static constexpr const char* kName = "insert-into-avlist";
  static constexpr const char* kUsage =
      "`(insert-into-avlist att exp)` puts a copy of the vector that `exp` gives in front";

 protected:
  bool accepts_at(AttVec& vec) override { return is_list(vec, att_) && vec.has(att_); }
  void insert(AttVec& vec, Ref<AttVec> made) override {
    elements_to_fill(vec, att_).insert_at(0, std::move(made));
  }
};

class RotateAndInsertIntoAvList : public Form<RotateAndInsertIntoAvList, AvListInsertion> {
 public:
  static constexpr const char* kName = "rotate-and-insert-into-avlist";
  static constexpr const char* kUsage =
      "`(rotate-and-insert-into-avlist att exp)` the new vector in front, the old first one to the "
      "end";

 protected:
  bool accepts_at(AttVec& vec) override { return elements(vec, att_) != nullptr; }
  void insert(AttVec& vec, Ref<AttVec> made) override {
    Array<Ref<AttVec>>& list = *elements(vec, att_);
    made.swap(list[0]);
    list.append(std::move(made));
  }
};

constexpr Prototype kAvlistForms[] = {
    form<DeleteFromAvList>(),
    form<MoveAtt>(),
    form<InsertIntoAvList>(),
    form<RotateAndInsertIntoAvList>(),
};

}  // namespace

constinit const Offer offers::avlist_forms{kAvlistForms};

}  // namespace torvane
