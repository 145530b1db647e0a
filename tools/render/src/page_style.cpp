#include "page_style.h"

namespace LiveViewRender {

const char* StyleSheet() {
    return R"CSS(
*{box-sizing:border-box}
body{margin:0;padding:24px 32px 36px;background:#eceff3;color:#1d2026;
  font-family:-apple-system,"Segoe UI",Roboto,"Helvetica Neue",Arial,"Liberation Sans",system-ui,sans-serif;
  -webkit-font-smoothing:antialiased}
.page-head{margin:0 0 20px;font-size:18px;font-weight:600;color:#2a2e35}
.row{display:flex;flex-wrap:wrap;gap:32px;align-items:flex-start}
.stage{margin:0;display:flex;flex-direction:column;align-items:center;gap:10px}
.stage figcaption{font-size:11px;font-weight:600;letter-spacing:.08em;text-transform:uppercase;color:#6a717c}
.device{width:340px;height:660px;padding:10px;border-radius:46px;background:#111318;
  box-shadow:0 18px 40px rgba(16,22,40,.22),inset 0 0 0 2px #2b2e36}
.screen{position:relative;width:100%;height:100%;border-radius:37px;overflow:hidden;display:flex;flex-direction:column}
.phone .screen{background:linear-gradient(165deg,#dfe6f5 0%,#eef0f5 45%,#e6e3ee 100%)}
.statusbar{position:relative;display:flex;align-items:center;gap:8px;height:44px;padding:0 20px 0 26px;
  font-size:14px;font-weight:600;color:#15171c}
.statusbar .now{min-width:34px}
.statusbar .sys{margin-left:auto;display:flex;align-items:center;gap:5px}
.statusbar .signal{display:inline-flex;align-items:flex-end;gap:1.5px;height:11px}
.statusbar .signal i{display:block;width:3px;border-radius:1px;background:currentColor}
.statusbar .battery{position:relative;width:23px;height:11px;border:1.5px solid currentColor;border-radius:3.5px;opacity:.9}
.statusbar .battery::before{content:"";position:absolute;inset:1.5px;right:5px;border-radius:1.5px;background:currentColor}
.statusbar .battery::after{content:"";position:absolute;right:-4px;top:2.5px;width:2px;height:3.5px;border-radius:0 1px 1px 0;background:currentColor}
.shade{flex:1;padding:6px 12px 12px;display:flex;flex-direction:column;gap:10px}
.shade-date{padding:6px 8px 4px;font-size:13px;font-weight:600;color:#3c414b}
.lock .screen{background:radial-gradient(120% 80% at 25% 10%,#3b4f86 0%,#18203a 55%,#0a0c14 100%);color:#fff}
.lock .statusbar{color:#fff}
.lock-time{margin-top:30px;text-align:center;font-size:68px;font-weight:300;letter-spacing:1px;line-height:1}
.lock-date{margin:8px 0 26px;text-align:center;font-size:14px;opacity:.85}
.lock .cards{padding:0 12px}
.empty-note{margin:auto;padding:0 24px;text-align:center;font-size:13px;color:#7d8592}
.lock .empty-note{color:#aab2c3}
/* capsule */
.capsule{display:inline-flex;align-items:center;gap:6px;max-width:196px;height:28px;padding:0 11px 0 4px;
  border-radius:14px;background:#2b2f36;color:#fff;font-size:12.5px;font-weight:600;white-space:nowrap;overflow:hidden}
.capsule.on-light{color:#15171c}
.capsule .c-title,.capsule .c-content{overflow:hidden;text-overflow:ellipsis}
.capsule .c-content{font-weight:500;opacity:.88}
.capsule .c-timer,.capsule .c-percent{font-variant-numeric:tabular-nums}
.capsule .pic-xs{border-radius:50%}
.capsule.kind-progress{padding-left:2px}
.ring-wrap{position:relative;display:inline-flex;align-items:center;justify-content:center;width:24px;height:24px;flex:none}
.ring-wrap .pic-xs{width:16px;height:16px}
.ring{position:absolute;inset:0;width:24px;height:24px}
.ring circle{fill:none;stroke-width:4}
.ring-track{stroke:currentColor;opacity:.28}
.ring-fill{stroke:currentColor;stroke-linecap:round}
.ring.spin{animation:spin 1.1s linear infinite}
@keyframes spin{to{transform:rotate(360deg)}}
/* pictures */
.pic{display:inline-block;flex:none;object-fit:contain;border-radius:8px}
img.pic.blank{outline:1px dashed rgba(120,128,140,.7);outline-offset:-1px;
  background:repeating-conic-gradient(rgba(120,128,140,.22) 0 25%,transparent 0 50%) 0 0/8px 8px}
.placeholder{display:inline-flex;align-items:center;justify-content:center;overflow:hidden;padding:0 2px;
  border:1px dashed rgba(90,100,115,.55);background:repeating-linear-gradient(135deg,rgba(255,255,255,.55) 0 4px,rgba(205,211,222,.55) 4px 8px);
  color:#4a525e;font-size:9px;font-weight:600;line-height:1.1;text-align:center;word-break:break-all;white-space:normal}
.capsule .placeholder,.dark .placeholder,.external .placeholder{color:inherit;border-color:rgba(255,255,255,.55);
  background:repeating-linear-gradient(135deg,rgba(255,255,255,.22) 0 4px,rgba(255,255,255,.08) 4px 8px)}
.pic-xs{width:20px;height:20px;font-size:10px}
.pic-s{width:22px;height:22px;font-size:10px;border-radius:50%}
.pic-m{width:32px;height:32px;font-size:8px}
.pic-l{width:44px;height:44px;border-radius:12px}
.pic-xl{width:60px;height:60px;border-radius:14px}
/* cards */
.card{display:flex;flex-direction:column;gap:11px;padding:13px 15px 15px;border-radius:22px;background:#fff;
  box-shadow:0 1px 2px rgba(20,24,35,.06),0 6px 18px rgba(20,24,35,.07)}
.card.dark{background:rgba(24,27,36,.78);color:#f2f4f7;box-shadow:0 1px 0 rgba(255,255,255,.06) inset}
.card-head{display:flex;align-items:center;gap:6px;min-width:0;font-size:11.5px;color:#6b717c}
.dark .card-head{color:#aeb5c2}
.app-icon{width:16px;height:16px;flex:none;border-radius:5px;background:linear-gradient(135deg,#4f8bff,#8a5cff)}
.card-head .app{overflow:hidden;text-overflow:ellipsis;white-space:nowrap}
.card-head .app+.event::before{content:"\00b7";margin-right:6px}
.badges{margin-left:auto;display:flex;gap:4px}
.badge{padding:2px 7px;border-radius:999px;background:#eef0f4;color:#59606b;font-size:10.5px;font-weight:600}
.dark .badge{background:rgba(255,255,255,.14);color:#e3e6ec}
.badge.ended{background:#fde8e6;color:#b3261e}
.primary{display:flex;align-items:flex-start;gap:12px}
.primary-text{flex:1;min-width:0}
.title{font-size:15.5px;font-weight:650;line-height:1.3}
.content{margin-top:2px;font-size:13.5px;line-height:1.4;color:#4b515b}
.dark .content{color:#c9ced8}
.timer-line{display:flex;align-items:center;gap:6px;margin-top:6px;font-size:13px}
.timer-line .clock{font-weight:650;font-variant-numeric:tabular-nums}
.clock-label{color:#7a808b}
.dark .clock-label{color:#a7aebb}
.stopwatch{position:relative;width:13px;height:13px;border:1.8px solid currentColor;border-radius:50%;opacity:.75}
.stopwatch::after{content:"";position:absolute;left:4.1px;top:1.5px;width:1.6px;height:4.5px;background:currentColor}
/* layouts */
.layout{font-size:13px}
.layout-progress .bar{position:relative;height:30px;margin:2px 12px 0}
.track{position:absolute;left:0;right:0;top:12px;height:6px;border-radius:3px;background:#e2e6ec;overflow:hidden}
.dark .track{background:rgba(255,255,255,.18)}
.fill{height:100%;border-radius:3px;background:#3d7bff}
.node{position:absolute;top:4px;transform:translateX(-50%);display:flex}
.node .pic{box-shadow:0 0 0 2px #fff;background-color:#fff}
.dark .node .pic{box-shadow:0 0 0 2px #262a35;background-color:#262a35}
.indicator{position:absolute;top:4px;transform:translateX(-50%);display:flex;align-items:center;justify-content:center;height:22px}
.indicator .pic{box-shadow:0 0 0 2px #fff;background-color:#fff}
.dark .indicator .pic{box-shadow:0 0 0 2px #262a35;background-color:#262a35}
.indicator .dot{width:14px;height:14px;border-radius:50%;background:currentColor;box-shadow:0 0 0 3px #fff}
.dark .indicator .dot{box-shadow:0 0 0 3px #262a35}
.layout-pickup{display:flex;align-items:center;gap:12px;padding:10px 12px;border-radius:14px;background:#f5f6f9}
.dark .layout-pickup{background:rgba(255,255,255,.07)}
.pickup-text{flex:1;min-width:0}
.pickup-title{font-size:17px;font-weight:700}
.underline{padding-bottom:1px;border-bottom:3px solid transparent}
.pickup-content{margin-top:5px;color:#5b616c}
.dark .pickup-content{color:#c3c8d2}
.route{display:flex;align-items:center;gap:10px}
.route .end{min-width:56px}
.route .end.right{text-align:right}
.f-title{font-size:22px;font-weight:700;letter-spacing:.5px}
.f-content{color:#5b616c;font-variant-numeric:tabular-nums}
.dark .f-content{color:#c3c8d2}
.middle{flex:1;display:flex;align-items:center;justify-content:center;gap:8px}
.middle.with-line::before,.middle.with-line::after{content:"";flex:1;border-top:2px dashed #b9c0cc}
.f-additional{margin-top:8px;padding-top:8px;border-top:1px solid #edf0f3;color:#2f7d32;font-weight:600}
.dark .f-additional{border-top-color:rgba(255,255,255,.1);color:#8fd694}
.teams{display:flex;align-items:center;justify-content:space-between;gap:8px}
.team{width:96px;display:flex;flex-direction:column;align-items:center;gap:5px;text-align:center}
.team-name{font-weight:600}
.board{flex:1;display:flex;flex-direction:column;align-items:center;gap:2px}
.scores{font-size:30px;font-weight:750;font-variant-numeric:tabular-nums;letter-spacing:1px}
.colon{margin:0 6px;opacity:.5}
.competition-time{font-size:12px;font-weight:600;color:#b3261e}
.dark .competition-time{color:#ff8a80}
.competition-desc{margin-top:6px;text-align:center;color:#5b616c}
.dark .competition-desc{color:#c3c8d2}
.hline{margin:8px 0 0;border:0;border-top:1px solid #e3e6ec}
.layout-navigation{display:flex;align-items:center;gap:14px;padding:8px 10px;border-radius:14px;background:#f5f6f9}
.dark .layout-navigation{background:rgba(255,255,255,.07)}
.nav-icons{display:flex;gap:8px;flex-wrap:wrap}
/* extension and buttons */
.extension{display:flex;align-items:center;gap:8px;align-self:flex-start;padding:6px 12px 6px 8px;border-radius:12px;
  background:#eef3ff;color:#1f4fd1;font-size:13px;font-weight:600}
.buttons{display:flex;gap:8px;flex-wrap:wrap}
.button{flex:1;min-width:0;padding:8px 12px;border-radius:999px;background:#f0f2f5;color:#1f4fd1;text-align:center;
  font-size:12.5px;font-weight:600;overflow:hidden;text-overflow:ellipsis;white-space:nowrap}
/* external screen */
.external-frame{width:340px;height:200px;padding:9px;border-radius:22px;background:#111318;
  box-shadow:0 14px 30px rgba(16,22,40,.2),inset 0 0 0 2px #2b2e36}
.external-frame .empty-note{display:flex;align-items:center;justify-content:center;height:100%;color:#8b93a1}
.external{display:flex;flex-direction:column;justify-content:center;gap:8px;height:100%;padding:18px 22px;
  border-radius:14px;background:#22252c;color:#fff}
.external.on-light{color:#15171c}
.ext-title{font-size:21px;font-weight:700;line-height:1.2}
.ext-content{font-size:14.5px;opacity:.92}
/* panels */
.refusal{max-width:560px;padding:18px 20px;border-radius:16px;background:#fff;border-left:5px solid #d93025;
  box-shadow:0 6px 18px rgba(20,24,35,.08)}
.refusal .r-head{font-size:12px;font-weight:700;letter-spacing:.06em;text-transform:uppercase;color:#b3261e}
.refusal .r-code{margin-top:6px;font:600 22px/1.2 ui-monospace,"DejaVu Sans Mono",monospace}
.refusal .r-message{margin-top:6px;font-size:15px;line-height:1.45}
.refusal .r-hint{margin-top:10px;padding-top:10px;border-top:1px solid #eceff3;font-size:13px;color:#5b616c}
.frame{display:flex;flex-wrap:wrap;gap:28px;align-items:flex-start;padding:22px 0;border-top:1px solid #d9dde4}
.frame:first-of-type{border-top:0;padding-top:0}
.frame-info{width:220px;flex:none}
.frame-step{font-size:12px;font-weight:700;letter-spacing:.06em;text-transform:uppercase;color:#6a717c}
.frame-label{margin-top:4px;font-size:15px;font-weight:600;word-break:break-word}
.frame-answer{display:inline-block;margin-top:8px;padding:3px 9px;border-radius:8px;font:600 12px/1.4 ui-monospace,"DejaVu Sans Mono",monospace;
  background:#e6f4ea;color:#137333;word-break:break-word}
.frame-answer.failed{background:#fce8e6;color:#b3261e}
.nothing-held{padding:18px 22px;border:1px dashed #b9c0cc;border-radius:14px;color:#6a717c;font-size:14px}
)CSS";
}

const char* ClockScript() {
    return R"JS(
(function () {
  function two(n) { return (n < 10 ? "0" : "") + n; }
  function format(ms) {
    var s = Math.floor(Math.max(ms, 0) / 1000), h = Math.floor(s / 3600), m = Math.floor(s / 60) % 60;
    return (h > 0 ? h + ":" + two(m) : two(m)) + ":" + two(s % 60);
  }
  function tick() {
    var now = Date.now();
    document.querySelectorAll("[data-clock-ms]").forEach(function (el) {
      if (!el.dataset.seenAt) { el.dataset.seenAt = String(now); }
      if (el.dataset.paused === "1") { return; }
      var passed = now - Number(el.dataset.seenAt), base = Number(el.dataset.clockMs);
      el.textContent = format(el.dataset.countdown === "1" ? base - passed : base + passed);
    });
  }
  tick();
  setInterval(tick, 1000);
})();
)JS";
}

const char* StatusIcons() {
    return "<span class=\"sys\" aria-hidden=\"true\"><span class=\"signal\">"
           "<i style=\"height:4px\"></i><i style=\"height:6px\"></i>"
           "<i style=\"height:8.5px\"></i><i style=\"height:11px\"></i></span>"
           "<span class=\"battery\"></span></span>";
}

}  // namespace LiveViewRender
