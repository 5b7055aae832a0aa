#include "history/EditTarget.h"

// Here, so that its type information, by which the edit menu casts, is in one place.
EditTarget::~EditTarget() = default;
