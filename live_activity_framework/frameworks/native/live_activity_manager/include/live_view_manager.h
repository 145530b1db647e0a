// The one header an application includes to use live views: the client, the record with all of
// its sections, the static operations, the key catalogue, result codes and logging types, and
// the platform headers that the API uses (parameter maps, pictures, click actions, requests).
//
// A live view from start to end (error handling shortened; every call answers a code):
//
//   namespace LV = Tavi::Wisp::LiveView;
//   LV::LiveView liveView;                       // id, event, sequence, liveViewData...
//   liveView.SetId(std::make_shared<int>(101));
//   liveView.SetEvent("FOOD_DELIVERY");
//   liveView.SetSequence(std::make_shared<int>(1));
//   liveView.SetLiveViewData(data);              // primary: title, content, clickAction, layout
//
//   LV::LiveViewClient client;
//   LV::LiveViewClient::LiveViewResult result;
//   LV::BaseRsp rsp = client.StartLiveView(liveView, result);
//   if (!rsp.Succeed()) { /* rsp.GetErrAsInt32(), rsp.GetInfo(): e.g. 401 and the field */ }
//
//   LV::LiveView change;                         // same id, a higher sequence, what changed
//   change.SetId(std::make_shared<int>(101));
//   change.SetEvent("FOOD_DELIVERY");
//   change.SetSequence(std::make_shared<int>(2));
//   change.SetLiveViewData(changedData);
//   rsp = client.UpdateLiveView(change, result);
//
//   LV::LiveView held;                           // what the service holds now
//   int code = client.GetActiveLiveView(101, held);
//
//   change.SetSequence(std::make_shared<int>(3));
//   LV::LiveView::GetPrimaryData(change)->SetKeepTime(std::make_shared<int>(60));  // seconds
//   rsp = client.StopLiveView(change, result);   // readable for 60 s more, then removed
//
// Thread safety: see each header.
#ifndef LIVE_VIEW_LIVE_VIEW_MANAGER_H
#define LIVE_VIEW_LIVE_VIEW_MANAGER_H

// Platform types that appear in the API.
#include "notification_content.h"
#include "notification_live_view_content.h"
#include "notification_request.h"
#include "pixel_map.h"
#include "refbase.h"
#include "want_agent.h"
#include "want_params.h"

// Results, codes and logging.
#include "base_rsp.h"
#include "error_code.h"
#include "live_view_event.h"
#include "log_template.h"

// The record.
#include "capsule_data.h"
#include "extension_data.h"
#include "external_data.h"
#include "flight_layout.h"
#include "layout_data.h"
#include "live_view.h"
#include "live_view_base.h"
#include "live_view_data.h"
#include "live_view_timer.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "primary_data.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "rich_text.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"

// Operations.
#include "live_view_client.h"
#include "live_view_constant.h"
#include "live_view_error_conversion.h"
#include "live_view_param_conversion.h"
#include "live_view_param_validate.h"
#include "live_view_subscriber.h"
#include "notification_request_conversion.h"

#endif  // LIVE_VIEW_LIVE_VIEW_MANAGER_H
