// Attributes whose value is a text, or an entity that only its producer knows.
#pragma once

#include "att/slot_atts.h"

namespace torvane {

class World;

/// A text, kept as a `Name`.
class StrAtt : public AttClass<StrAtt, LongVAtt> {
 public:
  static constexpr const char* kType = "StrAtt";
  static constexpr const char* kUsage = "a text";
  StrAtt() { holds = Holds::text; }
  void print(std::ostream& out, const AttVec* vec) const override;
  const char* str_val(AttWord value, std::string&) const override;
  AttWord make_val(IRSlist* form) const override;
  AttWord get_val(const char* token) const override;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  Value to_value(AttWord value) const override;
};

/// An opaque entity, such as a lexical item. Whoever knows the entities of an attribute sets its
/// functions.
class EntAtt : public AttClass<EntAtt, LongVAtt> {
 public:
  static constexpr const char* kType = "EntAtt";
  static constexpr const char* kUsage = "an entity that the engine sets, such as a lexical item";
  EntAtt() {
    holds = Holds::entity;
    plain = false;
  }
  void init(World& world, IRSlist* facets) override;
  bool unify(AttVec* vec, int at, AttWord value, bool store) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  void pack(const AttVec*, StrBufs&) const override {}
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  Value to_value(AttWord value) const override;

  /// The entity that two have become, 0 if they do not go together; null: equality.
  AttWord (*unifier)(AttWord current, AttWord value) = nullptr;
  /// Writes an entity; null: its word in hexadecimal.
  void (*printer)(AttWord value, std::ostream& out) = nullptr;
  /// An entity as expressions see it; null: a mere number.
  Value (*viewer)(AttWord value) = nullptr;
};

/// The EntAtt behind an attribute, for setting its functions; null if it is another class.
EntAtt* ent_att(AttInterpreter* att);

}  // namespace torvane
