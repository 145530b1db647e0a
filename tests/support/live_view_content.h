// Test support: the live-view content of a notification request, as the service received or holds
// it. Tests stand on the host's side of the boundary, so they use the host's accessor.
#ifndef LIVE_VIEW_TESTS_LIVE_VIEW_CONTENT_H
#define LIVE_VIEW_TESTS_LIVE_VIEW_CONTENT_H

#include "live_view_content_access.h"

namespace LiveViewTest {

using Tavi::Host::LiveViewContentOf;

}  // namespace LiveViewTest

#endif  // LIVE_VIEW_TESTS_LIVE_VIEW_CONTENT_H
