#include "att/att_vec.h"

#include <cstdlib>
#include <new>

#include "att/att_fixture.h"
#include "att/block_pool.h"
#include "att/text_atts.h"

namespace {
std::size_t allocations = 0;
}

// Counted, so that a test can tell what a walk over vectors costs.
void* operator new(std::size_t n) {
  ++allocations;
  if (void* p = std::malloc(n ? n : 1)) return p;
  std::abort();
}
void* operator new(std::size_t n, std::align_val_t align) {
  ++allocations;
  auto a = static_cast<std::size_t>(align);
  if (void* p = std::aligned_alloc(a, (n + a - 1) / a * a)) return p;
  std::abort();
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete(void* p, std::align_val_t) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t, std::align_val_t) noexcept {
  std::free(p);
}

namespace torvane {
namespace {

class AttVecTest : public AttTest {};

struct Pair {
  const char* a;
  const char* b;
  int want;
};

TEST_F(AttVecTest, CompareIsTheSubsumptionOrder) {
  scalars();
  const Pair pairs[] = {
      {"()", "()", 0},
      {"()", "(+def)", -1},
      {"(+def)", "()", 1},
      {"(+def)", "(-def)", 2},
      {"(+def (num sg))", "((num sg) (cnt 1))", 2},
      {"(+def)", "((num sg))", 2},
      {"(+def (num sg))", "(+def)", 1},
      {"(-def (num sg))", "(+def)", 2},
      {"((cas nom acc))", "((cas nom))", -1},
      {"((cas nom))", "((cas nom acc))", 1},
      {"((cas nom acc))", "((cas acc dat))", 2},
      {"(~cas)", "((cas nom))", 2},
      {"(~cas)", "(~cas)", 0},
      {"((cas nom) +def)", "((cas nom acc))", 1},
      {"((cas nom acc) +def)", "((cas nom))", 2},  // more attributes, but a wider value
      {"((cas nom acc) (gen m))", "((cas nom) (gen m f))", 2},
      {"((cas nom acc) (gen m f))", "((cas nom) (gen m))", -1},
      {"((cnt 3))", "((cnt 5))", -1},
      {"((cnt 5))", "((cnt 3))", 1},
      {"((cnt -1))", "((cnt 5))", 1},  // compared as unsigned
      {"((num sg))", "((num pl))", 2},
      {"((txt \"x\"))", "((txt x))", 0},
      {"((txt x))", "((txt X))", 2},
      {"((age 3))", "((age 4))", 2},
  };
  for (const Pair& pair : pairs)
    EXPECT_EQ(vec(pair.a)->compare(*vec(pair.b)), pair.want) << pair.a << " against " << pair.b;
}

TEST_F(AttVecTest, CompareLooksOnlyAtTheMask) {
  AttInterpreterList* type = scalars();
  LBitSet mask(type->count());
  mask.set(index("num"));
  EXPECT_EQ(vec("(+def (num sg))")->compare(*vec("(-def (num sg) (cnt 3))"), &mask), 0);
  EXPECT_EQ(vec("(+def)")->compare(*vec("(-def)"), &mask), 0);
  LBitSet others = mask.complement();  // with a tail beyond its words
  EXPECT_EQ(vec("(+def (num sg))")->compare(*vec("(+def (num pl))"), &others), 0);
  EXPECT_EQ(vec("(+def (num sg))")->compare(*vec("((num pl))"), &others), 1);
}

TEST_F(AttVecTest, UnifyStoresTheCommonValue) {
  scalars();
  struct {
    const char *a, *b;
    int want;
    const char* result;
  } const cases[] = {
      {"()", "()", 1, "()"},
      {"(+def)", "((num sg) (cnt 2))", 1, "(+def (num sg) (cnt 2))"},
      {"((cas nom acc))", "((cas acc dat))", 1, "((cas acc))"},
      {"((cas nom))", "((cas dat))", 0, "((cas nom))"},
      {"((gen m f))", "((gen f n))", 1, "((gen f))"},
      {"(~cas)", "(~cas)", 1, "(~cas)"},
      {"(~cas)", "((cas nom))", 0, "(~cas)"},
      {"((age 3))", "((age 4))", 1, "((age 3))"},
      {"((cnt -3))", "((cnt -3))", 1, "(-cnt)"},  // prints by its sign, as any such text
      {"((txt a))", "((txt b))", 0, "((txt \"a\"))"},
      {"(~num)", "((num sg))", 0, "(~num)"},
      // What stands before the failing attribute is done, what stands behind it is not.
      {"((cnt 1))", "(+def (cas nom) (cnt 2) (age 7))", 0, "(+def (cas nom) (cnt 1))"},
      {"((num sg))", "(+def (num pl) (cnt 4))", 0, "(+def (num sg))"},
      {"(-def)", "(+def (num pl))", 0, "(-def)"},
  };
  for (const auto& c : cases) {
    Ref<AttVec> a = vec(c.a);
    Ref<AttVec> b = vec(c.b);
    EXPECT_EQ(a->unifiable(*b), c.want) << c.a << " with " << c.b;
    EXPECT_EQ(text(a), text(vec(c.a))) << "a test must not store";
    EXPECT_EQ(a->unify(*b, nullptr, 1), c.want) << c.a << " with " << c.b;
    EXPECT_EQ(text(a), c.result) << c.a << " with " << c.b;
    EXPECT_EQ(text(b), text(vec(c.b))) << "the other must not change";
  }
}

// Flags are unified a word at a time, but as if one by one in order.
TEST_F(AttVecTest, ManyFlagsStopAtTheFirstClash) {
  std::string atts;
  for (int i = 0; i < 70; ++i)
    atts += "(defattribute b" + std::to_string(i) + (i == 40 ? " IntAtt)" : " BinAtt)");
  new_type(atts);
  Ref<AttVec> a = vec("(-b35)");
  EXPECT_EQ(a->unify(*vec("(+b0 -b31 +b32 +b35 +b36 +b64)"), nullptr, 1), 0);
  EXPECT_EQ(text(a), "(+b0 -b31 +b32 -b35)");
  a = vec("((b40 1))");
  EXPECT_EQ(a->unify(*vec("(+b39 (b40 2) +b41 +b69)"), nullptr, 1), 0);
  EXPECT_EQ(text(a), "(+b39 (b40 1))");
  a = vec("((b40 1) -b50)");
  EXPECT_EQ(a->unify(*vec("(+b39 (b40 1) +b41 +b50)"), nullptr, 1), 0);
  EXPECT_EQ(text(a), "(+b39 (b40 1) +b41 -b50)");
}

TEST_F(AttVecTest, OtherWalks) {
  AttInterpreterList* type = scalars();
  LBitSet mask(type->count());
  mask.set(index("num"));
  mask.set(index("cnt"));

  Ref<AttVec> a = vec("((num sg))");
  EXPECT_EQ(a->unify(*vec("(+def (cnt 4))"), &mask, 1), 1);
  EXPECT_EQ(text(a), "((num sg) (cnt 4))");

  a = vec("((num sg) (cnt 1))");
  a->force_unify(*vec("((num pl) (cnt 2) (age 3))"), nullptr);
  EXPECT_EQ(text(a), "((num sg) (cnt 1) (age 3))");

  a = vec("(+def (num sg) (cas nom))");
  a->modify(*vec("(-def (num pl) ~cas (cnt 1))"), &mask);
  EXPECT_EQ(text(a), "(+def (num pl) (cas nom) (cnt 1))");

  a = vec("(+def (num sg) (cas nom acc) (cnt 1))");
  a->subtract(*vec("(-def (num sg) (cas nom) (cnt 1) (age 3))"));
  EXPECT_EQ(text(a), "(+def (cas nom acc))");

  a = vec("(+def (num sg) (cas nom acc) (cnt 1))");
  a->generalize(*vec("(+def (num pl) (cnt 1))"));
  EXPECT_EQ(text(a), "(+def (cnt 1))");
  a = vec("(+def (num sg) (cnt 1))");
  a->generalize(*vec("()"), &mask);
  EXPECT_EQ(text(a), "(+def)");

  a->copy_from(*vec("((num du) (txt t))"));
  EXPECT_EQ(text(a), "((num du) (txt \"t\"))");
  a->clear_all();
  EXPECT_EQ(text(a), "()");
  EXPECT_EQ(a->get(index("num")), 0u);
}

TEST_F(AttVecTest, GetSetUndefine) {
  scalars();
  Ref<AttVec> a = vec("((cnt -1) (cas nom ~))");
  EXPECT_EQ(a->get(index("cnt")), 0xffffffffu);
  EXPECT_EQ(a->get(index("cas")), 0x80000001u);
  a->set(index("def"), 1);
  a->set(index("age"), 300);
  EXPECT_EQ(a->get(index("age")), 44u);
  a->undefine(index("cnt"));
  a->undefine(index("txt"));
  EXPECT_EQ(text(a), "(+def (cas nom) (age 44))");
  a->set(-1, 5);
  a->set(1000, 5);
  a->undefine(-1);
  EXPECT_EQ(a->get(-1), 0u);
  EXPECT_EQ(a->get(1000), 0u);
}

TEST_F(AttVecTest, CopiesAreIndependent) {
  scalars();
  Ref<AttVec> a = vec("(+def (num sg) (cnt 7))");
  AttVec b(*a);
  b.set(index("def"), 0);
  b.set(index("cnt"), 8);
  b.undefine(index("num"));
  EXPECT_EQ(text(a), "(+def (num sg) (cnt 7))");
  EXPECT_EQ(text(b), "(-def (cnt 8))");
  EXPECT_EQ(b.refcount, 0);
}

TEST_F(AttVecTest, NoTypeMeansNoOperation) {
  AttVec none(nullptr);
  EXPECT_EQ(run_.errors(), "Creating AttVec with nil Interpreter\n");
  scalars();
  Ref<AttVec> some = vec("(+def)");
  IRSlistReader reader;
  none.read(reader.start_string("(+def)"));
  none.set(0, 1);
  none.undefine(0);
  none.modify(*some);
  none.generalize(*some);
  none.subtract(*some);
  none.clear_all();
  EXPECT_EQ(none.unify(*some, nullptr, 1), 0);
  EXPECT_EQ(some->unify(none, nullptr, 1), 1);
  EXPECT_EQ(none.unify(none, nullptr, 1), 1);
  EXPECT_EQ(none.compare(*some), -1);
  EXPECT_EQ(none.compare(none), 0);
  EXPECT_EQ(text(none), "()");
  StrBufs bytes;
  none.pack(bytes);
  EXPECT_EQ(bytes.object_size(), 0u);
  const char* p = "\x08";
  EXPECT_TRUE(none.unpack(p, p + 1));
  AttVec copy(none);
  EXPECT_EQ(text(copy), "()");
}

TEST_F(AttVecTest, TypesDoNotMix) {
  scalars();
  Ref<AttVec> a = vec("(+def (num sg))");
  nested();
  Ref<AttVec> b = vec("((v +a) (fr (+a)))");
  EXPECT_EQ(a->unify(*b, nullptr, 1), 0);
  EXPECT_EQ(a->unifiable(*b), 0);
  EXPECT_EQ(a->unify(*vec("()"), nullptr, 1), 1);
  EXPECT_EQ(a->compare(*b), 2);
  EXPECT_EQ(a->compare(*vec("()")), 1);
  a->modify(*b);
  a->subtract(*b);
  a->force_unify(*b, nullptr);
  EXPECT_EQ(text(a), "(+def (num sg))");
  a->generalize(*b);
  EXPECT_EQ(text(a), "()");
  a->copy_from(*b);
  EXPECT_EQ(text(a), text(b));
}

TEST_F(AttVecTest, TypeMayGrowUnderItsVectors) {
  AttInterpreterList* type = new_type(
      "(defattribute b BinAtt)(defattribute k EnumAtt (allowable-values x y))"
      "(defattribute t StrAtt)");
  Ref<AttVec> old = vec("(+b (k y) (t one))");
  Ref<AttVec> empty = vec("()");
  std::string more;
  for (int i = 0; i < 40; ++i) {
    std::string n = std::to_string(i);
    more += "(defattribute s" + n + " StrAtt)(defattribute e" + n +
            " EnumAtt (allowable-values p q))(defattribute f" + n + " BinAtt)";
  }
  run_.run("(def-att-list " + name_ + " " + more + ")");
  EXPECT_EQ(type->count(), 123);
  EXPECT_EQ(old->get(index("s39")), 0u);
  EXPECT_EQ(type->at(index("s39"))->get(old.get()), 0u);
  EXPECT_EQ(type->at(index("e39"))->get(old.get()), 0u);

  AttVec copy(*old);
  Ref<AttVec> grown = vec("(+b (s39 two) (e39 q) +f39)");
  EXPECT_EQ(old->compare(*grown), 2);
  EXPECT_EQ(old->unify(*grown, nullptr, 1), 1);
  EXPECT_EQ(text(old), "(+b (k y) (t \"one\") (s39 \"two\") (e39 q) +f39)");
  EXPECT_EQ(old->compare(*grown), 1);
  EXPECT_EQ(text(copy), "(+b (k y) (t \"one\"))");
  EXPECT_EQ(grown->unify(copy, nullptr, 1), 1);
  EXPECT_EQ(grown->compare(*old), 0);
  empty->modify(*grown);
  EXPECT_EQ(empty->compare(*old), 0);
  empty->copy_from(copy);
  EXPECT_EQ(text(empty), "(+b (k y) (t \"one\"))");
  empty->set(index("e39"), 1);
  EXPECT_EQ(text(empty), "(+b (k y) (t \"one\") (e39 p))");
}

// In a steady state the walks of the parsing loop must not reach the allocator.
TEST_F(AttVecTest, SteadyStateAllocatesNothing) {
  if (!BlockPool::recycles()) GTEST_SKIP() << "blocks are not recycled in this build";
  AttInterpreterList* type = nested();
  Ref<AttVec> head = vec("((v +a) (fr (+a) ((k x))) (st (-a)) (n 3) +b)");
  Ref<AttVec> mod = vec("((v (k y)) (fr () ((d p))) (st (-a) (+a)) (n 3))");
  LBitSet mask(type->count());
  mask.set(0);
  mask.set(1);
  Ref<AttVec> item = make_ref<AttVec>(type);
  auto step = [&] {
    item->clear_all();
    item->unify(*head, &mask, 1);
    item->unify(*mod, nullptr, 1);
    item->compare(*head, &mask);
    item->unifiable(*mod);
    Ref<AttVec> copy = make_ref<AttVec>(*item);
    copy->own_list(1)->own(0)->set(0, 0);
    copy->own_list(1)->vecs.remove_at(0);
    item->copy_from(*copy);
  };
  for (int i = 0; i < 10; ++i) step();
  std::size_t before = allocations;
  for (int i = 0; i < 100; ++i) step();
  EXPECT_EQ(allocations - before, 0u);
}

TEST_F(AttVecTest, EntitiesUnifyAndPrintAsTheirOwnerSays) {
  AttInterpreterList* type = scalars();
  const int ent = index("ent");
  Ref<AttVec> a = vec("()");
  Ref<AttVec> b = vec("()");
  a->set(ent, 0x2a);
  b->set(ent, 0x2b);
  EXPECT_EQ(text(a), "((ent 2a))");
  EXPECT_EQ(a->unify(*b, nullptr, 1), 0);
  EXPECT_EQ(a->compare(*b), 2);
  EXPECT_EQ(text(vec("(~ent)")), "(~ent)");

  EntAtt* att = ent_att(type->at(ent));
  ASSERT_NE(att, nullptr);
  EXPECT_EQ(ent_att(type->at(0)), nullptr);
  att->unifier = [](AttWord current, AttWord value) { return value > current ? value : 0; };
  att->printer = [](AttWord value, std::ostream& out) { out << '#' << value; };
  EXPECT_EQ(b->unify(*a, nullptr, 1), 0);
  EXPECT_EQ(a->unifiable(*b), 1);
  EXPECT_EQ(text(a), "((ent #42))");
  EXPECT_EQ(a->unify(*b, nullptr, 1), 1);
  EXPECT_EQ(text(a), "((ent #43))");
  EXPECT_EQ(text(vec("(~ent)")), "(~ent)");
}

TEST_F(AttVecTest, HeldVectorsAreCounted) {
  scalars();
  Ref<AttVec> a = vec("(+def)");
  {
    HeldValue held(Value::of(a.get()));
    EXPECT_EQ(a->refcount, 2);
    EXPECT_EQ(held.get().as<AttVec>(), a.get());
  }
  free_retired_values();
  EXPECT_EQ(a->refcount, 1);
  a->of_sentence = true;
  HeldValue held(Value::of(a.get()));
  bump_sentence_epoch();
  EXPECT_EQ(held.get().as<AttVec>(), nullptr);
}

}  // namespace
}  // namespace torvane
