// What the forms on vectors have in common.
#pragma once

#include "att/att_args.h"
#include "lexp/form.h"

namespace torvane {

/// A form on a vector. Null in, null out; a form is made for one type, and in a vector of another
/// type its attributes mean what stands at their indexes there.
class AttPred : public LExp {
 public:
  AttPred();
  Value eval(Value input, int input_type) override;
  Outlook foresee(Value input, int input_type) override;

 protected:
  /// The result for a vector, which is also the input.
  virtual Value apply(AttVec& vec, Value input, int input_type) = 0;
};

/// The index of an attribute of a type (which may be null), or -1 after
/// "The attribute NAME is not found".
int find_att(const AttInterpreterList* type, const char* att_name);
/// The indexes of a list of names, those not found left out. Null gives none.
Array<std::int16_t> find_atts(const AttInterpreterList* type, IRSlist* names);
LBitSet find_att_set(const AttInterpreterList* type, IRSlist* names);

}  // namespace torvane
