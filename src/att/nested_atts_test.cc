#include "att/nested_atts.h"

#include "att/att_fixture.h"

namespace torvane {
namespace {

class NestedAttsTest : public AttTest {};

TEST_F(NestedAttsTest, ReadingAndPrinting) {
  nested();
  const char* const cases[][2] = {
      {"((v +a (k x)))", "((v (+a (k x))))"},
      {"((v (+a (k x))))", "((v (+a (k x))))"},
      {"((v ((k x) +a)))", "((v (+a (k x))))"},
      {"((v (k x)))", "((v ((k x))))"},
      {"((v (~k)))", "((v (~k)))"},
      {"((fr (+a) () ((k y))))", "((fr (+a) () ((k y))))"},
      {"((v) (fr) (st) (tr))", "(~v ~fr ~st ~tr)"},
      {"(~v ~fr ~st ~tr)", "(~v ~fr ~st ~tr)"},
      {"((n 1) (fr ()) +b)", "((n 1) +b)"},  // only empty vectors: no item, and no stray blank
      {"((fr () ()) (n 2))", "((n 2))"},
      {"((st ()))", "()"},
  };
  for (const auto& c : cases) {
    Ref<AttVec> a = vec(c[0]);
    EXPECT_EQ(text(a), c[1]);
    EXPECT_EQ(text(vec(c[1])), c[1]) << "does not read back";
  }
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(NestedAttsTest, Unify) {
  nested();
  struct {
    const char *a, *b;
    int want;
    const char* result;
  } const cases[] = {
      {"((v +a))", "((v (k x)))", 1, "((v (+a (k x))))"},
      {"((v +a))", "((v -a (k x)))", 0, "((v (+a)))"},
      {"(~v)", "(~v)", 1, "(~v)"},
      {"(~v)", "((v +a))", 0, "(~v)"},
      {"((v +a))", "(~v)", 0, "((v (+a)))"},
      {"((fr (+a) ()))", "((fr ((k x)) ((k y))))", 1, "((fr (+a (k x)) ((k y))))"},
      {"((fr (+a)))", "((fr (+a) ()))", 0, "((fr (+a)))"},
      {"((fr () (+a) ()))", "((fr ((k x)) (-a) ((k y))))", 0, "((fr ((k x)) (+a) ()))"},
      {"(~fr)", "((fr (+a)))", 0, "(~fr)"},
      {"((st (+a) ()))", "((st ((k x)) () () ((k z)) (-a)))", 1,
       "((st (+a (k x)) () () ((k z)) (-a)))"},
      {"((st (+a) (-a)))", "((st ((k x))))", 1, "((st (+a (k x)) (-a)))"},
      {"((st (+a)))", "((st (-a) (+a)))", 0, "((st (+a)))"},
      {"((st ((d p q))))", "((st ((d q r))))", 1, "((st ((d q))))"},
  };
  for (const auto& c : cases) {
    Ref<AttVec> a = vec(c.a);
    Ref<AttVec> b = vec(c.b);
    AttVec twin(*a);
    EXPECT_EQ(a->unifiable(*b), c.want) << c.a << " with " << c.b;
    EXPECT_EQ(a->unify(*b, nullptr, 1), c.want) << c.a << " with " << c.b;
    EXPECT_EQ(text(a), c.result) << c.a << " with " << c.b;
    EXPECT_EQ(text(twin), text(vec(c.a))) << "a shared value was changed";
    EXPECT_EQ(text(b), text(vec(c.b))) << "the other was changed";
  }
}

TEST_F(NestedAttsTest, Compare) {
  nested();
  struct {
    const char *a, *b;
    int want;
  } const cases[] = {
      {"((v +a))", "((v +a (k x)))", -1},
      {"((v +a (k x)))", "((v +a))", 1},
      {"((v +a))", "((v -a))", 2},
      {"(~v)", "((v +a))", 2},
      {"(~v)", "(~v)", 0},
      {"((fr (+a) ()))", "((fr (+a) ()))", 0},
      {"((fr (+a)))", "((fr (+a) ()))", 2},
      {"((fr (+a) ()))", "((fr () (-a)))", 2},
      {"((fr () (-a)))", "((fr (+a) (-a)))", -1},
      {"((st (+a)))", "((st (+a) ()))", -1},
      {"((st (+a) ()))", "((st (+a)))", 1},
      {"((st (+a)))", "((st () ()))", 2},
      {"((st (+a) ()))", "((st ()))", 1},
      {"((st (+a)))", "((st (-a)))", 2},
      {"((st ((d p q)) ()))", "((st ((d p))))", 2},
  };
  for (const auto& c : cases)
    EXPECT_EQ(vec(c.a)->compare(*vec(c.b)), c.want) << c.a << " against " << c.b;
}

TEST_F(NestedAttsTest, SubtractGeneralizeModify) {
  nested();
  struct {
    void (AttVec::*walk)(const AttVec&, const LBitSet*);
    const char *a, *b, *result;
    bool stays_defined;
  } const cases[] = {
      {&AttVec::subtract, "((v +a (k x)))", "((v +a))", "((v ((k x))))", true},
      {&AttVec::subtract, "((v +a))", "((v +a))", "()", false},
      {&AttVec::subtract, "(~v)", "(~v)", "()", false},
      {&AttVec::subtract, "((v +a))", "(~v)", "((v (+a)))", true},
      {&AttVec::subtract, "((fr (+a (k y)) ((k x))))", "((fr (+a) ((k x))))", "((fr ((k y)) ()))",
       true},
      {&AttVec::subtract, "((fr (+a) ((k x))))", "((fr (+a) ((k x))))", "()", false},
      {&AttVec::subtract, "((fr (+a)))", "((fr (+a) ()))", "((fr (+a)))", true},
      {&AttVec::subtract, "((st (+a)))", "((st (+a)))", "()", true},  // a stack of empty vectors
      {&AttVec::subtract, "((st (+a) (-a)))", "((st (+a)))", "((st () (-a)))", true},
      {&AttVec::generalize, "((v +a (k x)))", "((v +a (k y)))", "((v (+a)))", true},
      {&AttVec::generalize, "((v +a))", "(~v)", "()", false},
      {&AttVec::generalize, "((fr (+a) ()))", "((fr (+a (k x)) (-a)))", "((fr (+a) ()))", true},
      {&AttVec::generalize, "((fr (+a)))", "((fr (+a) ()))", "()", false},
      {&AttVec::generalize, "((st (+a) (-a)))", "((st (+a (k x))))", "((st (+a)))", true},
      {&AttVec::modify, "((v +a (k x)))", "((v -a))", "((v (-a (k x))))", true},
      {&AttVec::modify, "((v +a))", "(~v)", "(~v)", true},
      {&AttVec::modify, "(~fr)", "((fr (+a)))", "((fr (+a)))", true},
      {&AttVec::modify, "((fr (+a)))", "((fr (-a) ((k x))))", "((fr (-a) ((k x))))", true},
      {&AttVec::modify, "((st (+a) (-a)))", "((st ((k y))))", "((st (+a (k y)) (-a)))", true},
  };
  for (const auto& c : cases) {
    Ref<AttVec> a = vec(c.a);
    Ref<AttVec> b = vec(c.b);
    AttVec twin(*a);
    (a.get()->*c.walk)(*b, nullptr);
    EXPECT_EQ(text(a), c.result) << c.a << " by " << c.b;
    EXPECT_EQ(!a->is_empty(), c.stays_defined) << c.a << " by " << c.b;
    EXPECT_EQ(text(twin), text(vec(c.a))) << "a shared value was changed";
    EXPECT_EQ(text(b), text(vec(c.b))) << "the other was changed";
  }
}

// Values go from vector to vector by count, and are copied element by element when one is changed.
TEST_F(NestedAttsTest, ValuesAreSharedUntilChanged) {
  nested();
  const int fr = index("fr");
  Ref<AttVec> a = vec("((fr (+a) ((k x))))");
  AttVecList* shared = reinterpret_cast<AttVecList*>(a->get(fr));
  EXPECT_EQ(shared->refcount, 1);
  {
    AttVec b(*a);
    AttVec c(AttInterpreterList::current());
    c.unify(*a, nullptr, 1);
    EXPECT_EQ(b.get(fr), a->get(fr));
    EXPECT_EQ(shared->refcount, 3);

    AttVec* second = shared->at(1);
    AttVecList* own = b.own_list(fr);
    EXPECT_NE(own, shared);
    EXPECT_EQ(shared->refcount, 2);
    EXPECT_EQ(second->refcount, 2);
    own->own(0)->set(0, 0);
    EXPECT_EQ(own->at(1), second);
    EXPECT_EQ(text(b), "((fr (-a) ((k x))))");
    EXPECT_EQ(b.own_list(fr), own) << "a list of one owner is not copied again";
  }
  EXPECT_EQ(shared->refcount, 1);
  EXPECT_EQ(shared->at(1)->refcount, 1);
  EXPECT_EQ(text(a), "((fr (+a) ((k x))))");
  EXPECT_EQ(a->own_list(index("n")), nullptr);
  EXPECT_EQ(a->own_list(index("v")), nullptr);
  EXPECT_EQ(a->own_vec(fr), nullptr);
  EXPECT_EQ(shared->own(2), nullptr);

  // Stored again, released, replaced.
  a->set(fr, a->get(fr));
  EXPECT_EQ(shared->refcount, 1);
  Ref<AttVecList> held(shared);
  a->undefine(fr);
  EXPECT_EQ(shared->refcount, 1);
  EXPECT_EQ(a->get(fr), 0u);
}

TEST_F(NestedAttsTest, VectorThatIsItsOwnPartner) {
  nested();
  const char* form = "((v +a) (fr (+a) ((d p q))) (st (-a)) (n 3))";
  Ref<AttVec> a = vec(form);
  EXPECT_EQ(a->unify(*a, nullptr, 1), 1);
  a->modify(*a);
  a->generalize(*a);
  EXPECT_EQ(a->compare(*a), 0);
  EXPECT_EQ(text(a), text(vec(form)));
  a->subtract(*a);
  EXPECT_EQ(text(a), "()");

  // A nested vector, unified into the vector that it is a part of.
  AttInterpreterList* rec =
      new_type("(defattribute v VecAtt)(defattribute n IntAtt)(defattribute m IntAtt)");
  Ref<AttVec> outer = make_ref<AttVec>(rec);
  outer->set(0, VecAtt::word(vec("((n 1) (v (m 2)))").leak()));
  VecAtt::object(outer->get(0))->release();
  Ref<AttVec> before = make_ref<AttVec>(*VecAtt::object(outer->get(0)));
  AttVec* inner = VecAtt::object(outer->get(0));
  Ref<AttVec> keep(inner);
  EXPECT_EQ(outer->unify(*inner, nullptr, 1), 1);
  EXPECT_EQ(text(*inner), text(before)) << "the other changes under the walk";
  EXPECT_EQ(text(outer), "((v ((v ((m 2))) (n 1) (m 2))) (n 1))");
}

TEST_F(NestedAttsTest, Traces) {
  nested();
  const int tr = index("tr");
  auto chain = [](std::initializer_list<const char*> roles) {
    Ref<TraceChain> made = TraceChain::make();
    for (const char* role : roles) made->records.append({intern_string(role), nullptr});
    return made;
  };
  Ref<AttVec> a = vec("()");
  Ref<AttVec> b = vec("()");
  a->set(tr, TraceAtt::word(chain({"one"}).get()));
  b->set(tr, TraceAtt::word(chain({"two", "three"}).get()));
  AttVec twin(*a);
  EXPECT_EQ(a->unifiable(*b), 1);
  EXPECT_EQ(a->unify(*b, nullptr, 1), 1);
  EXPECT_EQ(text(a), "((tr (three) (two) (one)))");
  EXPECT_EQ(text(b), "((tr (two) (three)))");
  EXPECT_EQ(text(twin), "((tr (one)))");
  EXPECT_EQ(a->compare(*b), 2);
  EXPECT_EQ(a->unify(*vec("(~tr)"), nullptr, 1), 0);
  EXPECT_EQ(vec("(~tr)")->unifiable(*a), 0);
  EXPECT_EQ(vec("(~tr)")->unifiable(*vec("(~tr)")), 1);
  a->set(tr, TraceAtt::word(chain({}).get()));
  EXPECT_EQ(text(a), "()");
}

// Deeper than any stack: what is read, unpacked or put together must also come apart.
TEST_F(NestedAttsTest, DepthIsNoDanger) {
  AttInterpreterList* type = new_type("(defattribute v VecAtt)(defattribute fr ListAtt)");
  Ref<AttVec> deep = make_ref<AttVec>(type);
  for (int i = 0; i < 200000; ++i) {
    Ref<AttVec> outer = make_ref<AttVec>(type);
    if (i % 2) {
      outer->set(0, VecAtt::word(deep.get()));
    } else {
      Ref<AttVecList> list = AttVecList::make();
      list->vecs.append(deep);
      outer->set(1, ListAtt::word(list.get()));
    }
    deep = std::move(outer);
  }
  auto guarded = [&](const char* message) {
    EXPECT_EQ(run_.errors(), std::string(message) + "\n");
  };
  AttVec twin(*deep);
  const char* too_deep = "Attribute vectors are nested too deep";
  EXPECT_EQ(text(twin).substr(0, 12), "((v ((fr ((v");
  guarded(too_deep);
  StrBufs bytes;
  twin.pack(bytes);
  guarded(too_deep);
  {
    AttVec other(type);
    Ref<AttVec> one = make_ref<AttVec>(*VecAtt::object(twin.get(0)));
    other.set(0, VecAtt::word(one.get()));
    one->own_list(1)->own(0);
    EXPECT_EQ(other.compare(twin), 0) << "equal pointers need no walk";
  }
  std::string packed;
  for (int i = 0; i < 300000; ++i) packed += '\0';
  const char* p = packed.data();
  AttVec unpacked(type);
  EXPECT_FALSE(unpacked.unpack(p, p + packed.size()));
  guarded(too_deep);
}

}  // namespace
}  // namespace torvane
