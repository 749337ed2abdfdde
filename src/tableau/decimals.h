// The decimal places that the reports of a problem show its values with: one count for the whole problem,
// which rises while values are entered and never falls.
#pragma once

#include "basic/variant.h"

// Raises the count to what the value needs: 1 for a fraction, 2 where a second decimal stands. Less than
// about a hundredth counts as nothing.
void RaiseDecimalPlaces(Variant& places, double value);
