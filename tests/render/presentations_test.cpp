// The renderer's presentations through its public entry: each layout and capsule kind, sections
// that are not there, escaping of hostile text, and the refusal and filmstrip panels.
#include <functional>
#include <string>
#include <vector>

#include "render_test_support.h"

namespace RenderTest {
namespace {

using LiveViewRender::Presentations;

size_t Count(const std::string& html, const std::string& what) {
    size_t count = 0;
    for (size_t at = html.find(what); at != std::string::npos; at = html.find(what, at + 1)) {
        ++count;
    }
    return count;
}

struct KindRow {
    const char* name;
    std::function<void(LiveView&)> arrange;
    std::string layoutKind;
    std::vector<std::string> cardHas;
    std::string capsuleKind;  // empty: no capsule
    std::vector<std::string> capsuleHas;
    std::pair<std::string, size_t> counted;  // a part and how often the card holds it
};

using RenderPresentationsTest = RenderFixture;

TEST_F(RenderPresentationsTest, DrawsEachLayoutAndCapsuleKind) {
    const std::vector<KindRow> rows = {
        {"progress layout, progress capsule",
         [](LiveView& v) {
             SetLayout(v, ProgressLayoutForStart());
             SetCapsule(v, ProgressCapsuleForStart());
         },
         "progress",
         {Part("progress") + " data-value=\"40\" style=\"width:40%;background-color:rgb(10, 89, "
                             "247);\"",
          Part("track") + " style=\"background-color:rgba(0, 0, 0, 0.102);\"",
          Part("indicatorIcon") + " title=\"icon_rider\""},
         "progress",
         {Part("progress") + " data-value=\"10\"", Field("percent", "10%"),
          "style=\"background-color:rgb(0, 170, 0)\""},
         {Part("nodeIcon"), 3}},
        {"pickup layout, text capsule",
         [](LiveView& v) { SetCapsule(v, TextCapsuleForStart()); },
         "pickup",
         {Part("underline") + " style=\"border-bottom-color:rgb(255, 0, 0);\">Pickup code<",
          Field("content", "A-1024"), Part("descPic") + " title=\"pic_counter\""},
         "text",
         {Field("title", "Arriving"), Field("content", "5 min")},
         {Part("descPic"), 1}},
        {"flight layout, timer capsule, paused timer, extension with an action",
         [](LiveView& v) {
             SetLayout(v, FlightLayoutForStart());
             SetCapsule(v, TimerCapsuleForStart());
             auto timer = std::make_shared<LiveViewTimer>();
             timer->SetTime(Long(3725000));
             timer->SetIsPaused(Bool(true));
             v.SetTimer(timer);
             auto extension = ExtensionForStart();
             extension->SetClickAction(ClickAction("com.example.app/Call"));
             SetExtension(v, extension);
         },
         "flight",
         {Field("firstTitle", "08:30"), Field("firstContent", "Departure"),
          Field("lastTitle", "11:45"), Field("lastContent", "Arrival"),
          "class=\"middle with-line\" " + Part("horizontalLine"),
          Field("additionalText", "Gate 12"),
          Part("timer") + " data-clock-ms=\"3725000\" data-countdown=\"0\" data-paused=\"1\">"
                          "1:02:05<",
          Field("text", "Call"),
          Part("button") + " title=\"com.example.app/Call\">com.example.app/Call<"},
         "timer",
         {Part("timer") + " data-clock-ms=\"300000\" data-countdown=\"1\" data-paused=\"0\">05:00<",
          Field("content", "Remaining")},
         {Part("spaceIcon"), 1}},
        {"score layout",
         [](LiveView& v) { SetLayout(v, ScoreLayoutForStart()); },
         "score",
         {Field("hostName", "Harbour FC"), Field("hostScore", "2"),
          Field("guestName", "Valley United"), Field("guestScore", "1"),
          Part("competitionDesc") + "><span " + Field("run", "Second half"),
          Field("competitionTime", "67:12"), Part("guestIcon")},
         "",
         {},
         {Part("hostIcon"), 1}},
        {"navigation layout",
         [](LiveView& v) { SetLayout(v, NavigationLayoutForStart()); },
         "navigation",
         {Part("currentNavigationIcon") + " title=\"icon_turn_left\"", Part("navigationIcons")},
         "",
         {},
         {Part("navigationIcon"), 2}},
    };
    int id = 0;
    for (const KindRow& row : rows) {
        SCOPED_TRACE(row.name);
        LiveView liveView = StartRecord(++id);
        row.arrange(liveView);
        const Presentations drawn = Render(Publish(liveView));

        ASSERT_EQ(drawn.readBack.code, 0) << drawn.readBack.message;
        EXPECT_THAT(drawn.card, HasSubstr(Field("title", "Your order")));
        EXPECT_THAT(drawn.card,
                    HasSubstr(Part("layout") + " data-kind=\"" + row.layoutKind + "\""));
        for (const std::string& part : row.cardHas) {
            EXPECT_THAT(drawn.card, HasSubstr(part));
        }
        EXPECT_EQ(Count(drawn.card, row.counted.first), row.counted.second) << row.counted.first;
        if (row.capsuleKind.empty()) {
            EXPECT_EQ(drawn.capsule, "");
            continue;
        }
        EXPECT_THAT(drawn.capsule,
                    HasSubstr(Part("capsule") + " data-kind=\"" + row.capsuleKind + "\""));
        for (const std::string& part : row.capsuleHas) {
            EXPECT_THAT(drawn.capsule, HasSubstr(part));
        }
    }
}

TEST_F(RenderPresentationsTest, LeavesOutSectionsThatAreNotThere) {
    auto bare = std::make_shared<LayoutData>();
    bare->SetLayoutType(LayoutData::LAYOUT_TYPE_NONE);
    const Presentations drawn = Render(Publish(StartRecord(1, "DELIVERY", bare)));

    ASSERT_EQ(drawn.readBack.code, 0) << drawn.readBack.message;
    EXPECT_EQ(drawn.capsule, "");
    EXPECT_EQ(drawn.external, "");
    EXPECT_THAT(drawn.card, HasSubstr("<span data-part=\"run\" style=\"color:rgb(0, 0, 0)\">"
                                      "The rider is on the way</span>"));
    EXPECT_THAT(drawn.lockScreen, HasSubstr(Field("run", "The rider is on the way")));
    for (const char* part :
         {"layout", "timerLine", "extension", "buttons", "immersivePic", "ended"}) {
        EXPECT_THAT(drawn.card, Not(HasSubstr(Part(part)))) << part;
    }
    EXPECT_THAT(LiveViewRender::PresentationsRow(drawn),
                HasSubstr("Nothing for the external screen"));
}

TEST_F(RenderPresentationsTest, EscapesEveryTextAndDropsColoursNotOfTheirForm) {
    const std::string hostile = "<script>alert(\"x\")</script>'";
    const std::string escaped = "&lt;script&gt;alert(&quot;x&quot;)&lt;/script&gt;&#39;";
    RequestParts parts;
    parts.extra->SetParam(LiveViewConstant::EVENT, Tavi::AAFwk::String::Box(hostile));
    parts.extra->SetParam(LiveViewConstant::PRIMARY_DATA_TITLE, Tavi::AAFwk::String::Box(hostile));
    parts.extra->SetParam(
        LiveViewConstant::PRIMARY_DATA_CONTENT,
        Tavi::AAFwk::String::Box(
            R"J([{"text":"<img src=x onerror=alert(1)>","textColor":"red;background:url(//x)"}])J"));
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_TYPE, Tavi::AAFwk::Integer::Box(1));
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_BACKGROUND_COLOR,
                          Tavi::AAFwk::String::Box("#FF000000\" onmouseover=\"x"));
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_ICON_RES,
                          Tavi::AAFwk::String::Box("res://a\"b<c"));
    parts.extra->SetParam(LiveViewConstant::TEXT_CAPSULE_TITLE, Tavi::AAFwk::String::Box(hostile));
    parts.extra->SetParam(LiveViewConstant::EXTERNAL_DATA_TITLE, Tavi::AAFwk::String::Box(hostile));
    parts.extra->SetParam(LiveViewConstant::EXTERNAL_DATA_BACKGROUND_COLOR,
                          Tavi::AAFwk::String::Box("#123456;color:red"));
    parts.request->AddActionButton(Tavi::Notification::NotificationActionButton::Create(
        nullptr, hostile, ClickAction("x\"><script>")));
    parts.request->SetOwnerBundleName(hostile);
    const Presentations drawn = Render(parts.Build());

    ASSERT_EQ(drawn.readBack.code, 0) << drawn.readBack.message;
    EXPECT_THAT(drawn.card, HasSubstr(Field("title", escaped)));
    EXPECT_THAT(drawn.card, HasSubstr(Field("app", escaped)));
    EXPECT_THAT(drawn.card, HasSubstr(Field("event", escaped)));
    EXPECT_THAT(drawn.card,
                HasSubstr("<span " + Field("run", "&lt;img src=x onerror=alert(1)&gt;")));
    EXPECT_THAT(drawn.card, HasSubstr(Part("button") + " title=\"x&quot;&gt;&lt;script&gt;\">" +
                                      escaped + "<"));
    EXPECT_THAT(drawn.capsule, HasSubstr(Field("title", escaped)));
    EXPECT_THAT(drawn.capsule, HasSubstr("data-res=\"res://a&quot;b&lt;c\""));
    EXPECT_THAT(drawn.external, HasSubstr(Field("title", escaped)));
    for (const std::string& fragment :
         {drawn.card, drawn.lockScreen, drawn.capsule, drawn.external}) {
        EXPECT_THAT(fragment, Not(HasSubstr("<script")));
        EXPECT_THAT(fragment, Not(HasSubstr("<img src=x")));
        EXPECT_THAT(fragment, Not(HasSubstr("style=")));
        EXPECT_THAT(fragment, Not(HasSubstr("\" onmouseover")));
    }
    const std::string page = LiveViewRender::PreviewPage(hostile, drawn);
    EXPECT_THAT(page, HasSubstr("<title>" + escaped + "</title>"));
    EXPECT_EQ(Count(page, "<script"), 1u);
}

TEST_F(RenderPresentationsTest, ShowsRefusalsAndFilmstripFrames) {
    const Presentations unreadable = Render(nullptr);
    EXPECT_EQ(unreadable.readBack.code, 1003500001);
    EXPECT_EQ(unreadable.readBack.message, "The notificationRequest is nullptr.");
    EXPECT_EQ(unreadable.card, "");
    EXPECT_THAT(LiveViewRender::PresentationsRow(unreadable),
                HasSubstr(Field("message", "The notificationRequest is nullptr.")));

    const std::string panel = LiveViewRender::RefusalPanel(401, "a<b", "use \"c\"");
    EXPECT_THAT(panel, HasSubstr(Field("code", "401")));
    EXPECT_THAT(panel, HasSubstr(Field("message", "a&lt;b")));
    EXPECT_THAT(panel, HasSubstr(Field("hint", "use &quot;c&quot;")));
    EXPECT_THAT(LiveViewRender::RefusalPanel(401, "a", ""), Not(HasSubstr(Part("hint"))));

    const Presentations held = Render(Publish(StartRecord()));
    const std::string page = LiveViewRender::FilmstripPage(
        "delivery", {{"start <101>", {0, "success."}, held},
                     {"update", {1003500011, "The liveView sequence is incorrect."}, {}}});
    EXPECT_EQ(Count(page, Part("frame")), 2u);
    EXPECT_THAT(page, HasSubstr(Field("step", "start &lt;101&gt;")));
    EXPECT_THAT(page, HasSubstr("\"frame-answer\" " + Field("answer", "0 success.")));
    EXPECT_THAT(page, HasSubstr("\"frame-answer failed\" " +
                                Field("answer", "1003500011 The liveView sequence is incorrect.")));
    EXPECT_EQ(Count(page, Part("card")), 1u);
    EXPECT_THAT(page, HasSubstr(Field("nothingHeld", "Nothing held")));
}

}  // namespace
}  // namespace RenderTest
