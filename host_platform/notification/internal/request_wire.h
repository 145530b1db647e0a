// Host-internal: a notification request as JSON, the form in which it travels between an app and
// the simulator and in which the simulator stores it. The JSON loses nothing the service keeps;
// decoding the encoder's JSON and encoding it again gives the same JSON.
//
// The request (every member is required; "null" marks a null pointer):
//   {"id": int32, "slotType": int32, "inProgress": bool, "autoDeletedTime": int64,
//    "wantAgent": agent|null, "content": content|null, "actionButtons": [button...],
//    "coverActionButtons": bool, "ownerBundleName": text, "ownerUid": int32}
// content: {"contentType": 0} for a content without an object, or
//   {"contentType": 1, "title", "text", "singlePicture": picture|null, "status": 0..3,
//    "version": uint32 (4294967295 = not set), "onlyLocalUpdate": bool,
//    "extraInfo": params|null, "pictures": {key: [picture|null...]}}
// agent: {"target": text}
// button: {"title", "icon": picture|null, "wantAgent": agent|null, "extras": params|null,
//   "semantic": 0..2, "autoCreatedReplies": bool, "mimeTypeOnlyInputs": [input|null...],
//   "userInput": input|null, "contextDependent": bool}
// input: {"inputKey": text}
// picture: {"width": int32 > 0, "height": int32 > 0, "format": PixelFormat number,
//   "pixels": Base64 of exactly width * height * bytes-a-pixel bytes}
// params: {key: box|null}; box: {"type": T, "value": v} with T the WantParams::VALUE_TYPE number:
//   1 true/false, 5 int32, 6 int64, 8 number (or "NaN", "Infinity", "-Infinity"), 9 text,
//   101 params; or {"type": 102, "elementType": int32, "value": [box|null...]}, an array whose
//   boxes are all of elementType.
// int64: a number when its magnitude is at most 2^53, else its decimal text, so that every value
// reads back exactly. A box of a kind outside the table is written as null.
//
// cJSON texts end at a NUL byte, so a text holding one is cut there when encoded, and the parser
// below refuses one; a Double of negative zero
// reads back as zero.
//
// Thread safety: stateless; every function may be called from any thread.
#ifndef TAVI_HOST_REQUEST_WIRE_H
#define TAVI_HOST_REQUEST_WIRE_H

#include <cjson/cJSON.h>

#include <cstdint>
#include <memory>
#include <string>

#include "notification_request.h"
#include "refbase.h"

namespace Tavi {
namespace Host {
namespace Wire {

// The deepest nesting of arrays and objects that the readers below accept.
constexpr int MAX_NESTING = 64;
// The most pixel bytes that one decoded request may hold, over all its pictures.
constexpr int64_t MAX_PICTURE_BYTES = int64_t{64} << 20;
// Every whole number up to this magnitude is exactly a double: int64 values within it travel as
// numbers, larger ones as decimal text.
constexpr int64_t MAX_EXACT_WHOLE = int64_t{1} << 53;
// The texts of the Double values that JSON has no number for.
constexpr const char* NAN_TEXT = "NaN";
constexpr const char* INFINITY_TEXT = "Infinity";
constexpr const char* MINUS_INFINITY_TEXT = "-Infinity";

// Owns a cJSON tree: deletes it with cJSON_Delete.
struct JsonDeleter {
    void operator()(cJSON* json) const { cJSON_Delete(json); }
};
using JsonTree = std::unique_ptr<cJSON, JsonDeleter>;

// A new cJSON tree of request (caller owns, cJSON_Delete); null only when memory runs out.
cJSON* RequestToJson(const Notification::NotificationRequest& request);

// The same as compact JSON text ("" only when memory runs out).
std::string RequestToText(const Notification::NotificationRequest& request);

// Builds a new request from wire (which may be null). On failure returns false, leaves request
// alone and sets error to "<path>: <what is wrong>", the path naming the member from the request's
// root ("(root)" for the root itself), e.g. "content.extraInfo.score.value: expected a number".
bool RequestFromJson(const cJSON* wire, sptr<Notification::NotificationRequest>& request,
                     std::string& error);

// Parses text (any bytes) as one JSON value, refusing nesting deeper than MAX_NESTING and the
// escape of a NUL character ("\u0000", which cJSON's C strings would cut short) before cJSON
// sees it. Returns a new tree (caller owns, cJSON_Delete), or null with error set to what is
// wrong, e.g. "syntax error at byte 7".
cJSON* ParseJsonText(const std::string& text, std::string& error);

// ParseJsonText, then RequestFromJson; a parse failure gives "(root): not JSON (<what>)".
bool RequestFromText(const std::string& text, sptr<Notification::NotificationRequest>& request,
                     std::string& error);

}  // namespace Wire
}  // namespace Host
}  // namespace Tavi

#endif  // TAVI_HOST_REQUEST_WIRE_H
