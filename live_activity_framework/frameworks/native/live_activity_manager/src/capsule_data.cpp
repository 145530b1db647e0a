#include "capsule_data.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

CapsuleData::CapsuleData() : kind_(Kind::CAPSULE) {}

CapsuleData::CapsuleData(Kind kind) : kind_(kind) {}

CapsuleData::CapsuleData(const CapsuleData& other) : CapsuleData(other, Kind::CAPSULE) {}

CapsuleData::CapsuleData(const CapsuleData& other, Kind kind)
    : LiveViewBase(other),
      status_(other.status_),
      type_(other.type_),
      iconStr_(other.iconStr_),
      icon_(other.icon_),
      backgroundColor_(other.backgroundColor_),
      kind_(kind) {}

CapsuleData& CapsuleData::operator=(const CapsuleData& other) {
    LiveViewBase::operator=(other);
    status_ = other.status_;
    type_ = other.type_;
    iconStr_ = other.iconStr_;
    icon_ = other.icon_;
    backgroundColor_ = other.backgroundColor_;
    return *this;
}

std::shared_ptr<int> CapsuleData::GetStatus() const {
    return status_;
}

void CapsuleData::SetStatus(const std::shared_ptr<int>& status) {
    status_ = status;
}

CapsuleData::CapsuleType CapsuleData::GetType() const {
    return type_;
}

void CapsuleData::SetType(const CapsuleData::CapsuleType& type) {
    type_ = type;
}

std::shared_ptr<std::string> CapsuleData::GetIconStr() const {
    return iconStr_;
}

void CapsuleData::SetIconStr(const std::shared_ptr<std::string>& iconStr) {
    iconStr_ = iconStr;
}

std::shared_ptr<Media::PixelMap> CapsuleData::GetIcon() const {
    return icon_;
}

void CapsuleData::SetIcon(const std::shared_ptr<Media::PixelMap>& icon) {
    icon_ = icon;
}

std::shared_ptr<std::string> CapsuleData::GetBackgroundColor() const {
    return backgroundColor_;
}

void CapsuleData::SetBackgroundColor(const std::shared_ptr<std::string>& backgroundColor) {
    backgroundColor_ = backgroundColor;
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
