// The nested parameter map box; see want_params.h.
#ifndef TAVI_WANT_WANT_PARAMS_WRAPPER_H
#define TAVI_WANT_WANT_PARAMS_WRAPPER_H

#include "want_params.h"

#endif  // TAVI_WANT_WANT_PARAMS_WRAPPER_H
