// The one highlighted field of the editor that is open now.
#include "core/FieldTarget.h"

namespace
{

FieldTarget* current = nullptr;

} // namespace

FieldTarget* fieldTarget() { return current; }

void setFieldTarget(FieldTarget* target) { current = target; }
