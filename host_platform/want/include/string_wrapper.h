// The string box; see base_obj.h.
#ifndef TAVI_WANT_STRING_WRAPPER_H
#define TAVI_WANT_STRING_WRAPPER_H

#include "base_obj.h"

#endif  // TAVI_WANT_STRING_WRAPPER_H
