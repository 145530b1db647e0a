#include "score_layout.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

ScoreLayout::ScoreLayout() : LayoutData(Kind::SCORE) {}

ScoreLayout::ScoreLayout(const ScoreLayout& other)
    : LayoutData(other, Kind::SCORE),
      hostName_(other.hostName_),
      hostIconStr_(other.hostIconStr_),
      hostIcon_(other.hostIcon_),
      hostScore_(other.hostScore_),
      guestName_(other.guestName_),
      guestIconStr_(other.guestIconStr_),
      guestIcon_(other.guestIcon_),
      guestScore_(other.guestScore_),
      competitionDesc_(other.competitionDesc_),
      competitionDescVector_(other.competitionDescVector_),
      competitionTime_(other.competitionTime_),
      isHorizontalLineDisplayed_(other.isHorizontalLineDisplayed_) {}

std::shared_ptr<std::string> ScoreLayout::GetHostName() const {
    return hostName_;
}

void ScoreLayout::SetHostName(const std::shared_ptr<std::string>& hostName) {
    hostName_ = hostName;
}

std::shared_ptr<std::string> ScoreLayout::GetHostIconStr() const {
    return hostIconStr_;
}

void ScoreLayout::SetHostIconStr(const std::shared_ptr<std::string>& hostIconStr) {
    hostIconStr_ = hostIconStr;
}

std::shared_ptr<Media::PixelMap> ScoreLayout::GetHostIcon() const {
    return hostIcon_;
}

void ScoreLayout::SetHostIcon(const std::shared_ptr<Media::PixelMap>& hostIcon) {
    hostIcon_ = hostIcon;
}

std::shared_ptr<std::string> ScoreLayout::GetHostScore() const {
    return hostScore_;
}

void ScoreLayout::SetHostScore(const std::shared_ptr<std::string>& hostScore) {
    hostScore_ = hostScore;
}

std::shared_ptr<std::string> ScoreLayout::GetGuestName() const {
    return guestName_;
}

void ScoreLayout::SetGuestName(const std::shared_ptr<std::string>& guestName) {
    guestName_ = guestName;
}

std::shared_ptr<std::string> ScoreLayout::GetGuestIconStr() const {
    return guestIconStr_;
}

void ScoreLayout::SetGuestIconStr(const std::shared_ptr<std::string>& guestIconStr) {
    guestIconStr_ = guestIconStr;
}

std::shared_ptr<Media::PixelMap> ScoreLayout::GetGuestIcon() const {
    return guestIcon_;
}

void ScoreLayout::SetGuestIcon(const std::shared_ptr<Media::PixelMap>& guestIcon) {
    guestIcon_ = guestIcon;
}

std::shared_ptr<std::string> ScoreLayout::GetGuestScore() const {
    return guestScore_;
}

void ScoreLayout::SetGuestScore(const std::shared_ptr<std::string>& guestScore) {
    guestScore_ = guestScore;
}

std::shared_ptr<std::string> ScoreLayout::GetCompetitionDesc() const {
    return competitionDesc_;
}

void ScoreLayout::SetCompetitionDesc(const std::shared_ptr<std::string>& competitionDesc) {
    competitionDesc_ = competitionDesc;
}

std::vector<std::shared_ptr<RichText>> ScoreLayout::GetCompetitionDescVector() const {
    return competitionDescVector_;
}

void ScoreLayout::AddCompetitionDescVector(const std::shared_ptr<RichText>& competitionDesc) {
    competitionDescVector_.push_back(competitionDesc);
}

void ScoreLayout::SetCompetitionDescVector(
    const std::vector<std::shared_ptr<RichText>>& competitionDescVector) {
    competitionDescVector_ = competitionDescVector;
}

std::shared_ptr<std::string> ScoreLayout::GetCompetitionTime() const {
    return competitionTime_;
}

void ScoreLayout::SetCompetitionTime(const std::shared_ptr<std::string>& competitionTime) {
    competitionTime_ = competitionTime;
}

std::shared_ptr<bool> ScoreLayout::GetIsHorizontalLineDisplayed() const {
    return isHorizontalLineDisplayed_;
}

void ScoreLayout::SetIsHorizontalLineDisplayed(
    const std::shared_ptr<bool>& isHorizontalLineDisplayed) {
    isHorizontalLineDisplayed_ = isHorizontalLineDisplayed;
}

std::shared_ptr<ScoreLayout> AsScoreLayout(const std::shared_ptr<LayoutData>& layout) {
    if (layout == nullptr || layout->kind_ != LayoutData::Kind::SCORE) {
        return nullptr;
    }
    return std::static_pointer_cast<ScoreLayout>(layout);
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
