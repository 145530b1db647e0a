#include "sim_page.h"

#include "page_style.h"
#include "token_file.h"

namespace LiveViewSimulator {

namespace {

// The page's own look, on top of the renderer's style sheet (whose frames it reuses).
const char* const PAGE_CSS = R"CSS(
body{padding:20px 32px 40px}
.sim-head{display:flex;align-items:center;gap:14px;margin:0 0 18px}
.sim-head h1{margin:0;font-size:19px;font-weight:650;letter-spacing:-.01em}
.conn{display:inline-flex;align-items:center;gap:7px;padding:4px 11px 4px 9px;border-radius:999px;background:#fff;
  font-size:12px;font-weight:600;color:#6a717c;box-shadow:0 1px 2px rgba(20,24,35,.08)}
.conn i{width:8px;height:8px;border-radius:50%;background:#9aa1ac}
.conn[data-state=live]{color:#137333}
.conn[data-state=live] i{background:#1e9e4a;box-shadow:0 0 0 3px rgba(30,158,74,.18)}
.conn[data-state=reconnecting]{color:#8a5a00}
.conn[data-state=reconnecting] i{background:#e8a317;animation:blink 1s ease-in-out infinite alternate}
@keyframes blink{to{opacity:.25}}
.seq{margin-left:auto;font-size:12px;color:#7a808b;font-variant-numeric:tabular-nums}
.banner,.error-bar{padding:12px 16px;border-radius:12px;font-size:14px;line-height:1.45}
.banner{margin:0 0 18px;background:#fff4e5;border:1px solid #f3c98f;color:#6b4300}
.banner b{font-family:ui-monospace,"DejaVu Sans Mono",monospace;font-weight:600}
.error-bar{position:fixed;z-index:5;right:24px;bottom:24px;max-width:min(520px,calc(100% - 48px));display:flex;
  align-items:center;gap:12px;background:#fce8e6;border:1px solid #f4b8b2;color:#a52019;box-shadow:0 10px 30px rgba(20,24,35,.18)}
.error-bar span{flex:1;word-break:break-word}
[hidden]{display:none!important}
.sim-main{display:flex;flex-wrap:wrap;gap:24px;align-items:flex-start}
.side{flex:1 1 340px;display:flex;flex-wrap:wrap;justify-content:center;align-items:flex-start;gap:22px}
.side>.panel{flex:1 1 400px}
.panel{padding:16px 18px;border-radius:18px;background:#fff;
  box-shadow:0 1px 2px rgba(20,24,35,.06),0 6px 18px rgba(20,24,35,.06)}
.panel h2{margin:0 0 10px;font-size:11px;font-weight:700;letter-spacing:.08em;text-transform:uppercase;color:#6a717c}
fieldset{margin:0;padding:0;border:0;min-width:0}
.group+.group{margin-top:12px;padding-top:12px;border-top:1px solid #eef0f3}
button,input{font:inherit;font-size:13px}
button{padding:7px 12px;border:1px solid #d3d8e0;border-radius:10px;background:#f7f8fa;color:#1d2026;font-weight:600;white-space:nowrap;cursor:pointer}
button:hover:not(:disabled){background:#edf0f5;border-color:#c2c8d2}
button:focus-visible,input:focus-visible{outline:2px solid #3d7bff;outline-offset:2px}
button:disabled,input:disabled{opacity:.5;cursor:default}
.clock-row{display:flex;align-items:baseline;gap:10px;margin-bottom:8px}
.clock-big{font-size:22px;font-weight:650;font-variant-numeric:tabular-nums}
.pill:empty{display:none}
.pill{padding:2px 9px;border-radius:999px;background:#eef0f4;color:#59606b;font-size:11.5px;font-weight:600}
.pill[data-mode=manual]{background:#eef3ff;color:#1f4fd1}
.btn-row{display:flex;flex-wrap:wrap;gap:8px}
.apps{margin:0;padding:0;list-style:none}
.app-row{display:flex;align-items:center;gap:10px;padding:6px 0}
.app-row+.app-row{border-top:1px solid #f1f3f6}
.app-name{flex:1;min-width:0;display:flex;align-items:baseline;gap:8px}
.app-name .bundle{min-width:0;font-size:13.5px;font-weight:600;overflow:hidden;text-overflow:ellipsis;white-space:nowrap}
.app-name .uid{flex:none;font-size:11.5px;color:#7a808b;font-variant-numeric:tabular-nums}
.slot-state{font-size:11.5px;font-weight:600;color:#6a717c}
.slot-state.enabled{color:#137333}
.slot-state.not-configured{color:#8a5a00}
.slot-switch{appearance:none;-webkit-appearance:none;position:relative;flex:none;width:38px;height:22px;margin:0;
  border-radius:11px;background:#c9ced7;cursor:pointer;transition:background .15s}
.slot-switch::before{content:"";position:absolute;top:3px;left:3px;width:16px;height:16px;border-radius:50%;
  background:#fff;box-shadow:0 1px 2px rgba(0,0,0,.25);transition:transform .15s}
.slot-switch:checked{background:#2f6bff}
.slot-switch:checked::before{transform:translateX(16px)}
.muted{font-size:13px;color:#7a808b}
.rate-row{display:flex;align-items:center;gap:8px}
.rate-row input{width:84px;padding:6px 9px;border:1px solid #d3d8e0;border-radius:10px}
.rate-row span{flex:1;font-size:12.5px;color:#6a717c}
.danger-row{display:flex;align-items:center;gap:12px}
.danger-row span{font-size:12.5px;color:#6a717c}
button.danger{border-color:#f0b5b0;background:#fff;color:#b3261e}
button.danger:hover:not(:disabled){background:#fdeceb;border-color:#e6948c}
.shade,.lock .cards{min-height:0;overflow-y:auto;scrollbar-width:none}
.shade::-webkit-scrollbar,.lock .cards::-webkit-scrollbar{display:none}
.lock .cards{flex:1;display:flex;flex-direction:column;gap:10px;padding-bottom:12px}
.statusbar .capsules{display:flex;gap:4px;min-width:0;overflow:hidden}
.sim-capsule{display:flex;min-width:0}
.sim-card{display:flex;flex-direction:column;gap:6px}
.sim-card,#lock-screen>.sim-fragment{content-visibility:auto;contain-intrinsic-size:auto 170px}
.sim-card[data-ended=true] .card{opacity:.62}
.sim-card .card .buttons{display:none}
.sim-label{display:flex;align-items:center;gap:6px;padding:0 6px;font-size:11px;font-weight:600;color:#5d6470}
.sim-label .who{overflow:hidden;text-overflow:ellipsis;white-space:nowrap}
.tag-ended{padding:1px 7px;border-radius:999px;background:#fde8e6;color:#b3261e;font-size:10.5px}
.press-row{display:flex;gap:8px;flex-wrap:wrap}
button.press{flex:1;min-width:0;border:0;border-radius:999px;background:#fff;color:#1f4fd1;font-size:12.5px;
  overflow:hidden;text-overflow:ellipsis;white-space:nowrap;box-shadow:0 1px 2px rgba(20,24,35,.1)}
button.press:hover:not(:disabled){background:#f1f5ff}
.sim-card .refusal{padding:12px 14px;border-radius:16px}
.external-frame{height:auto;min-height:200px;display:flex;flex-direction:column;gap:9px}
.external-frame .empty-note{flex:1;height:auto;min-height:182px}
.external-frame .external{height:auto;min-height:182px}
.history-panel{margin-top:26px;overflow-x:auto}
.history-panel .muted{margin:4px 0}
#history{width:100%;border-collapse:collapse;font-size:13px}
#history th{padding:7px 10px;border-bottom:1px solid #e3e6ec;text-align:left;font-size:11px;font-weight:700;
  letter-spacing:.06em;text-transform:uppercase;color:#6a717c}
#history td{padding:7px 10px;border-bottom:1px solid #f0f2f5;vertical-align:top;overflow-wrap:break-word}
#history tr.refused td{background:#fff6f5}
#history .t,#history .n,#history .a{font-variant-numeric:tabular-nums;white-space:nowrap}
#history .m{min-width:200px}
#history .f{font-family:ui-monospace,"DejaVu Sans Mono",monospace;font-size:12px;color:#5b616c}
.code{display:inline-block;padding:1px 8px;border-radius:7px;background:#e6f4ea;color:#137333;
  font:600 12px/1.5 ui-monospace,"DejaVu Sans Mono",monospace}
tr.refused .code{background:#fce8e6;color:#b3261e}
@media (max-width:760px){body{padding:14px 12px 28px}.sim-main{justify-content:center}
  #history .f,#history th:last-child{display:none}}
)CSS";

// Draws /api/state into the page; controls call the API and show its error text when refused.
const char* const PAGE_JS = R"JS(
(function () {
  "use strict";
  var token = new URLSearchParams(location.search).get("token") || "";
  var $ = function (id) { return document.getElementById(id); };
  var clock = {base: 0, seenAt: 0, manual: true};
  var loading = false, again = false, drawnSeq = null;
  // Elements of the live views drawn last, by view, drawing and place: a redraw reuses those whose
  // drawing did not change, so that one update among a thousand views redraws one card.
  var nodes = {}, used = {};
  var shadeDate = el("div", "shade-date", null, {"data-today": ""});
  // Makes list the children of parent, moving only what is not in place already: replacing
  // every child would make the browser lay out a thousand cards again for one that changed.
  function setChildren(parent, list) {
    list.forEach(function (node, i) {
      var current = parent.childNodes[i];
      if (current !== node) { parent.insertBefore(node, current || null); }
    });
    while (parent.childNodes.length > list.length) { parent.removeChild(parent.lastChild); }
  }
  function cached(view, part, make) {
    var key = [view.bundle, view.uid, view.id, view.rev, view.ended, part].join("\u0000");
    var node = nodes[key] || make();
    used[key] = node;
    return node;
  }

  function el(tag, cls, text, attrs) {
    var node = document.createElement(tag);
    if (cls) { node.className = cls; }
    if (text !== undefined && text !== null) { node.textContent = String(text); }
    Object.keys(attrs || {}).forEach(function (name) { node.setAttribute(name, String(attrs[name])); });
    return node;
  }
  // The renderer's fragments are escaped HTML already; only they are parsed.
  function html(cls, markup, attrs) {
    var node = el("div", cls, null, attrs);
    node.innerHTML = markup;
    return node;
  }
  function two(n) { return (n < 10 ? "0" : "") + n; }
  function clockText(d) { return two(d.getHours()) + ":" + two(d.getMinutes()) + ":" + two(d.getSeconds()); }
  function dayText(d) { return d.getFullYear() + "-" + two(d.getMonth() + 1) + "-" + two(d.getDate()); }
  function longDate(d) {
    return d.toLocaleDateString("en-GB", {weekday: "long", day: "numeric", month: "long"}).replace(",", "");
  }
  function appOf(item) { return {bundle: item.bundle, uid: item.uid}; }
  var SLOT_TEXT = {"enabled": "on", "disabled": "off", "not configured": "on, never switched"};

  function tick() {
    if (!clock.base) { return; }
    var d = new Date(clock.base + (clock.manual ? 0 : Date.now() - clock.seenAt));
    $("clock").textContent = dayText(d) + " " + clockText(d);
    document.querySelectorAll("[data-now]").forEach(function (node) {
      node.textContent = d.getHours() + ":" + two(d.getMinutes());
    });
    document.querySelectorAll("[data-today]").forEach(function (node) { node.textContent = longDate(d); });
  }

  function showError(text) {
    $("error").hidden = !text;
    $("error-text").textContent = text || "";
  }
  function reason(error) {
    return error instanceof TypeError ? "the simulator cannot be reached" : error.message;
  }
  function call(method, path, body) {
    var init = {method: method, cache: "no-store", headers: {"Authorization": "Bearer " + token}};
    if (body) {
      init.headers["Content-Type"] = "application/json";
      init.body = JSON.stringify(body);
    }
    return fetch(path, init).then(function (res) {
      return res.json().catch(function () { return {}; }).then(function (json) {
        if (!res.ok) {
          var text = json.error || ("HTTP " + res.status);
          throw new Error(json.field ? text + " (" + json.field + ")" : text);
        }
        return json;
      });
    });
  }
  function control(what, path, body) {
    call("POST", path, body).then(function (answer) {
      showError(answer.code ? what + " answered code " + answer.code : "");
      refresh();
    }, function (error) { showError(what + " failed: " + reason(error)); });
  }

  function refresh() {
    if (loading) { again = true; return; }
    loading = true;
    call("GET", "/api/state").then(draw, function (error) {
      showError("Cannot load the state: " + reason(error));
    }).then(function () {
      loading = false;
      if (again) { again = false; refresh(); }
    });
  }

  // Redraws only when the state changed, so that the elements a person is using stay in place.
  function draw(state) {
    if (state.seq === drawnSeq) { return; }
    drawnSeq = state.seq;
    var views = state.views || [];
    used = {};
    clock = {base: state.clockMillis, seenAt: Date.now(), manual: !!state.manualClock};
    $("clock-mode").textContent = clock.manual ? "manual" : "real";
    $("clock-mode").dataset.mode = clock.manual ? "manual" : "real";
    drawPhone(views);
    drawScreen($("lock-screen"), views, "lockScreen", "No live views on the lock screen");
    drawScreen($("external-screen"), views, "external", "Nothing for the external screen");
    drawApps(state.apps || []);
    drawHistory(state.history || []);
    nodes = used;
    if (document.activeElement !== $("rate")) { $("rate").value = state.rateLimit; }
    tick();
    $("seq").textContent = "change " + state.seq;
    document.body.dataset.seq = String(state.seq);
  }

  function hooks(view) {
    return {"data-bundle": view.bundle, "data-uid": view.uid, "data-id": view.id, "data-ended": !!view.ended};
  }
  function drawPhone(views) {
    setChildren($("capsules"), views.filter(function (v) { return v.capsule; })
      .map(function (v) { return cached(v, "capsule", function () { return html("sim-capsule", v.capsule, hooks(v)); }); }));
    var cards = views.map(function (view) { return cached(view, "card", function () { return card(view); }); });
    if (!cards.length) { cards.push(el("div", "empty-note", "No live views held")); }
    setChildren($("shade"), [shadeDate].concat(cards));
  }
  function card(view) {
    var wrap = el("div", "sim-card", null, hooks(view));
    var label = el("div", "sim-label", null, {title: view.bundle + " (uid " + view.uid + ")"});
    label.append(el("span", "who", view.bundle + " \u00b7 #" + view.id));
    if (view.ended) { label.append(el("span", "tag-ended", "ended")); }
    wrap.append(label, view.readBack && view.readBack.code ? refusal(view.readBack) : html("", view.card));
    var row = el("div", "press-row");
    (view.buttons || []).forEach(function (name) {
      var button = el("button", "press", name, {type: "button", "data-button": name,
        title: "Press this action button: the app hears OnResponse"});
      button.addEventListener("click", function () {
        control("Press", "/api/press", {app: appOf(view), id: view.id, button: name});
      });
      row.append(button);
    });
    if (row.childNodes.length) { wrap.append(row); }
    return wrap;
  }
  function refusal(readBack) {
    var panel = el("section", "refusal");
    panel.append(el("div", "r-head", "Cannot be read back"), el("div", "r-code", readBack.code),
                 el("div", "r-message", readBack.message));
    return panel;
  }
  function drawScreen(screen, views, part, empty) {
    var shown = views.filter(function (v) { return v[part]; })
      .map(function (v) { return cached(v, part, function () { return html("sim-fragment", v[part], hooks(v)); }); });
    setChildren(screen, shown.length ? shown : [el("div", "empty-note", empty)]);
  }

  function drawApps(apps) {
    var rows = apps.map(function (app) {
      var row = el("li", "app-row");
      var name = el("div", "app-name");
      name.append(el("span", "bundle", app.bundle), el("span", "uid", "uid " + app.uid));
      var toggle = el("input", "slot-switch", null, {type: "checkbox", "data-bundle": app.bundle,
        "data-uid": app.uid, "aria-label": "Live view slot of " + app.bundle});
      // An app whose slot was never switched may publish: its switch shows on.
      toggle.checked = app.slot !== "disabled";
      toggle.addEventListener("change", function () {
        control("Slot switch", "/api/slot", {app: appOf(app), enabled: toggle.checked});
      });
      var state = el("span", "slot-state " + app.slot.replace(" ", "-"), SLOT_TEXT[app.slot] || app.slot);
      if (app.slot === "not configured") { state.title = "Never switched: the service lets the app publish"; }
      row.append(name, state, toggle);
      return row;
    });
    if (!rows.length) { rows.push(el("li", "muted", "No app has called the service yet")); }
    $("apps").replaceChildren.apply($("apps"), rows);
  }

  function drawHistory(history) {
    $("history-empty").hidden = history.length > 0;
    $("history-rows").replaceChildren.apply($("history-rows"), history.map(function (row) {
      var at = new Date(row.atMillis);
      var tr = el("tr", row.code ? "refused" : "", null, {"data-seq": row.seq});
      var code = el("td", "n");
      code.append(el("span", "code", row.code || "OK", row.code ? {title: "0x" + row.code.toString(16)} : {}));
      tr.append(el("td", "t", clockText(at), {title: dayText(at) + " " + clockText(at)}),
                el("td", "a", row.bundle, {title: "uid " + row.uid}), el("td", "n", row.id),
                el("td", "", row.operation), code, el("td", "m", row.message), el("td", "f", row.field));
      return tr;
    }));
  }

  function connect() {
    var events = new EventSource("/api/page-events?token=" + encodeURIComponent(token));
    var live = $("connection");
    function set(state) { live.dataset.state = state; live.lastChild.textContent = state; }
    events.addEventListener("change", refresh);
    // After a gap the server may have restarted with its count anew: redraw whatever it says.
    events.onopen = function () { set("live"); drawnSeq = null; nodes = {}; refresh(); };
    events.onerror = function () {
      set("reconnecting");
      if (events.readyState === EventSource.CLOSED) { setTimeout(connect, 2000); }
    };
  }

  document.querySelectorAll("[data-advance]").forEach(function (button) {
    button.addEventListener("click", function () {
      control("Clock", "/api/clock", {advance: Number(button.dataset.advance)});
    });
  });
  $("real-clock").addEventListener("click", function () { control("Clock", "/api/clock", {real: true}); });
  $("rate-form").addEventListener("submit", function (event) {
    event.preventDefault();
    control("Rate limit", "/api/rate-limit", {perSecond: $("rate").valueAsNumber});
  });
  $("kill").addEventListener("click", function () {
    if (confirm("Kill the notification service? Subscribers hear that it died and every live view is lost.")) {
      control("Kill", "/api/kill", {});
    }
  });
  $("error-close").addEventListener("click", function () { showError(""); });
  setInterval(tick, 1000);
  if (!token) {
    $("banner").hidden = false;
    $("controls").disabled = true;
    $("connection").lastChild.textContent = "no token";
    return;
  }
  refresh();
  connect();
})();
)JS";

// Everything between <body> and the scripts; the script fills it in.
std::string Body() {
    return std::string(R"HTML(<header class="sim-head"><h1>Live view simulator</h1>
<span id="connection" class="conn" data-state="connecting"><i></i><span>connecting</span></span>
<span id="seq" class="seq"></span></header>
<div id="banner" class="banner" role="alert" hidden>This page needs the simulator's token. Open the
address that <b>liveview serve</b> printed when it started (it ends in <b>/?token=</b> and 32 hex
characters); the token is also in <b>~/.liveview/serve-PORT.token</b>.</div>
<div id="error" class="error-bar" role="alert" hidden><span id="error-text"></span>
<button id="error-close" type="button">Dismiss</button></div>
<main class="sim-main">
<figure class="stage"><div class="device phone"><div class="screen">
<div class="statusbar" id="status-bar"><span class="now" data-now></span><span class="capsules" id="capsules"></span>)HTML") +
           LiveViewRender::StatusIcons() + R"HTML(</div>
<div class="shade" id="shade"><div class="empty-note">Not connected</div></div></div></div>
<figcaption>Status bar and notification shade</figcaption></figure>
<figure class="stage"><div class="device lock"><div class="screen">
<div class="statusbar"><span class="now" data-now></span>)HTML" +
           LiveViewRender::StatusIcons() + R"HTML(</div>
<div class="lock-time" data-now></div><div class="lock-date" data-today></div>
<div class="cards" id="lock-screen"><div class="empty-note">Not connected</div></div></div></div>
<figcaption>Lock screen</figcaption></figure>
<div class="side">
<section class="panel"><fieldset id="controls">
<div class="group"><h2>Service clock</h2>
<div class="clock-row"><span id="clock" class="clock-big">--</span><span id="clock-mode" class="pill"></span></div>
<div class="btn-row"><button type="button" data-advance="30000">+30 s</button>
<button type="button" data-advance="300000">+5 min</button>
<button type="button" data-advance="3600000">+1 h</button>
<button type="button" id="real-clock">Real clock</button></div></div>
<div class="group"><h2>Apps and their live view slot</h2><ul id="apps" class="apps"><li class="muted">Not connected</li></ul></div>
<div class="group"><h2>Rate limit</h2><form id="rate-form" class="rate-row" novalidate>
<input id="rate" type="number" min="0" step="1" aria-label="Publishes per second">
<span>publishes per second for each app</span><button type="submit">Set</button></form></div>
<div class="group danger-row"><button type="button" id="kill" class="danger">Kill service</button>
<span>Subscribers hear that it died; held live views are lost.</span></div>
</fieldset></section>
<figure class="stage"><div class="external-frame" id="external-screen"><div class="empty-note">Not connected</div></div>
<figcaption>External screen</figcaption></figure>
</div></main>
<section class="panel history-panel"><h2>History of publishes</h2>
<table id="history"><thead><tr><th>Time</th><th>App</th><th>ID</th><th>Operation</th><th>Code</th>
<th>Message</th><th>Field</th></tr></thead><tbody id="history-rows"></tbody></table>
<p id="history-empty" class="muted">Nothing published yet.</p></section>
)HTML";
}

std::string Head(const std::string& scriptSources) {
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
           "img-src data:; style-src 'unsafe-inline'; " +
           scriptSources +
           "base-uri 'none'; form-action 'none'\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<title>Live view simulator</title>\n";
}

}  // namespace

std::string SimulatorPage() {
    std::string nonce;
    std::string error;
    if (!DrawToken(nonce, error)) {
        return Head("") +
               "</head>\n<body>\n<p>The page could not draw the nonce for its script; "
               "reload it.</p>\n</body>\n</html>\n";
    }
    const std::string script = "<script nonce=\"" + nonce + "\">";
    return Head("script-src 'nonce-" + nonce + "'; connect-src 'self'; ") + "<style>" +
           LiveViewRender::StyleSheet() + PAGE_CSS + "</style>\n</head>\n<body data-seq=\"\">\n" +
           Body() + script + LiveViewRender::ClockScript() + "</script>\n" + script + PAGE_JS +
           "</script>\n</body>\n</html>\n";
}

}  // namespace LiveViewSimulator
