// ScoreLayout: a layout of a match score: host and guest names, pictures and scores, and the
// competition's description and time.
//
// Getters return a copy of the field's pointer (sharing the pointee) or a copy of the list;
// setters replace the pointer or the list; an empty pointer means the field was not given. A
// picture is given either as a resource string (the ...Str field) or as a pixel map. A new
// ScoreLayout has layout type LAYOUT_TYPE_NONE like every layout; whoever makes it sets the type
// to SCORE.
//
// Thread safety: none; a record is filled and read by one thread at a time.
#ifndef TAVI_WISP_LIVE_VIEW_SCORE_LAYOUT_H
#define TAVI_WISP_LIVE_VIEW_SCORE_LAYOUT_H

#include <memory>
#include <string>
#include <vector>

#include "layout_data.h"
#include "pixel_map.h"
#include "rich_text.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class ScoreLayout : public LayoutData {
public:
    ScoreLayout();
    ScoreLayout(const ScoreLayout& other);
    ScoreLayout& operator=(const ScoreLayout& other) = default;
    ~ScoreLayout() = default;

    std::shared_ptr<std::string> GetHostName() const;
    void SetHostName(const std::shared_ptr<std::string>& hostName);
    std::shared_ptr<std::string> GetHostIconStr() const;
    void SetHostIconStr(const std::shared_ptr<std::string>& hostIconStr);
    std::shared_ptr<Media::PixelMap> GetHostIcon() const;
    void SetHostIcon(const std::shared_ptr<Media::PixelMap>& hostIcon);
    std::shared_ptr<std::string> GetHostScore() const;
    void SetHostScore(const std::shared_ptr<std::string>& hostScore);

    std::shared_ptr<std::string> GetGuestName() const;
    void SetGuestName(const std::shared_ptr<std::string>& guestName);
    std::shared_ptr<std::string> GetGuestIconStr() const;
    void SetGuestIconStr(const std::shared_ptr<std::string>& guestIconStr);
    std::shared_ptr<Media::PixelMap> GetGuestIcon() const;
    void SetGuestIcon(const std::shared_ptr<Media::PixelMap>& guestIcon);
    std::shared_ptr<std::string> GetGuestScore() const;
    void SetGuestScore(const std::shared_ptr<std::string>& guestScore);

    // The competition description as one text.
    std::shared_ptr<std::string> GetCompetitionDesc() const;
    void SetCompetitionDesc(const std::shared_ptr<std::string>& competitionDesc);

    // The same description as rich-text runs; elements are kept as given, empty pointers included.
    std::vector<std::shared_ptr<RichText>> GetCompetitionDescVector() const;
    void AddCompetitionDescVector(const std::shared_ptr<RichText>& competitionDesc);
    void SetCompetitionDescVector(const std::vector<std::shared_ptr<RichText>>& competitionDescs);

    std::shared_ptr<std::string> GetCompetitionTime() const;
    void SetCompetitionTime(const std::shared_ptr<std::string>& competitionTime);

    std::shared_ptr<bool> GetIsHorizontalLineDisplayed() const;
    void SetIsHorizontalLineDisplayed(const std::shared_ptr<bool>& isHorizontalLineDisplayed);

private:
    std::shared_ptr<std::string> hostName_;
    std::shared_ptr<std::string> hostIconStr_;
    std::shared_ptr<Media::PixelMap> hostIcon_;
    std::shared_ptr<std::string> hostScore_;
    std::shared_ptr<std::string> guestName_;
    std::shared_ptr<std::string> guestIconStr_;
    std::shared_ptr<Media::PixelMap> guestIcon_;
    std::shared_ptr<std::string> guestScore_;
    std::shared_ptr<std::string> competitionDesc_;
    std::vector<std::shared_ptr<RichText>> competitionDescVector_;
    std::shared_ptr<std::string> competitionTime_;
    std::shared_ptr<bool> isHorizontalLineDisplayed_;
};

// The same object as a ScoreLayout (sharing ownership with layout) when its real class is
// ScoreLayout or derives from it; an empty pointer when layout is empty or of another class,
// whatever its layout type says.
std::shared_ptr<ScoreLayout> AsScoreLayout(const std::shared_ptr<LayoutData>& layout);

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // TAVI_WISP_LIVE_VIEW_SCORE_LAYOUT_H
