#include "bench_records.h"

#include <cstdio>
#include <cstdlib>

#include "full_records.h"
#include "live_view_request_pipeline.h"
#include "record_builders.h"
#include "want_params_wrapper.h"

namespace LiveViewBench {
namespace {

using LV::Builders::Int;
using LV::Builders::Str;
using LV::Builders::TextRun;
using Tavi::AAFwk::WantParams;

constexpr const char* BLUE = "#FF0A59F7";

}  // namespace

const char* LayoutName(int kindIndex) {
    return LV::Builders::FullRecordKindList()[kindIndex].layoutName;
}

LV::CapsuleData::CapsuleType CapsuleKindFor(int kindIndex) {
    return LV::Builders::FullRecordKindList()[kindIndex].capsule;
}

const char* CapsuleName(LV::CapsuleData::CapsuleType type) {
    for (const auto& kinds : LV::Builders::FullRecordKindList()) {
        if (kinds.capsule == type) {
            return kinds.capsuleName;
        }
    }
    return "none";
}

std::unique_ptr<LV::LiveView> MakeFullRecord(int kindIndex, int id) {
    return LV::Builders::FullRecord(LV::Builders::FullRecordKindList()[kindIndex], id);
}

std::unique_ptr<LV::LiveView> MakeSmallRecord(int id) {
    return std::make_unique<LV::LiveView>(LV::Builders::StartRecord(id, "PICK_UP"));
}

std::unique_ptr<LV::LiveView> MakeColorCapsuleRecord() {
    auto capsule = std::make_shared<LV::TimerCapsule>();
    capsule->SetStatus(Int(1));
    capsule->SetType(LV::CapsuleData::TIMER);
    capsule->SetIconStr(Str("media/capsule_timer.png"));
    capsule->SetBackgroundColor(Str("#FF202020"));
    auto data = std::make_shared<LV::LiveViewData>();
    data->SetCapsule(capsule);
    auto liveView = std::make_unique<LV::LiveView>();
    liveView->SetLiveViewData(data);
    return liveView;
}

std::unique_ptr<LV::LiveView> MakeRichTextRecord(int runs) {
    auto primary = std::make_shared<LV::PrimaryData>();
    primary->SetTitle(Str("Your order is on its way"));
    primary->SetClickAction(LV::Builders::ClickAction("com.example.food/OrderPage"));
    for (int i = 0; i < runs; ++i) {
        primary->AddContent(TextRun("a", BLUE));
    }
    auto data = std::make_shared<LV::LiveViewData>();
    data->SetPrimary(primary);
    auto liveView = std::make_unique<LV::LiveView>();
    liveView->SetLiveViewData(data);
    return liveView;
}

Outputs::Outputs()
    : content(std::make_shared<Tavi::Notification::NotificationLiveViewContent>()),
      extraInfo(std::make_shared<WantParams>()) {}

bool ValidateAndConvertForStart(const LV::LiveView& liveView,
                                Tavi::Notification::NotificationRequest& request) {
    return LV::LiveViewRequestPipeline::Build(liveView, LV::LiveView::START, LV::HeldLiveView(),
                                              request)
        .rsp.Succeed();
}

FloorPlan::FloorPlan(const WantParams& extraInfo, const PictureMap& pictureMap) {
    namespace AAFwk = Tavi::AAFwk;
    for (const auto& [key, value] : extraInfo.GetParams()) {
        if (auto* text = AAFwk::IString::Query(value)) {
            strings_.emplace_back(key, AAFwk::String::Unbox(text));
        } else if (auto* integer = AAFwk::IInteger::Query(value)) {
            ints_.emplace_back(key, AAFwk::Integer::Unbox(integer));
        } else if (auto* number = AAFwk::ILong::Query(value)) {
            longs_.emplace_back(key, AAFwk::Long::Unbox(number));
        } else if (auto* flag = AAFwk::IBoolean::Query(value)) {
            bools_.emplace_back(key, AAFwk::Boolean::Unbox(flag));
        } else if (auto* nested = AAFwk::IWantParams::Query(value)) {
            nested_.emplace_back(key, AAFwk::WantParamWrapper::Unbox(nested));
        } else if (auto* array = AAFwk::IArray::Query(value)) {
            long length = 0;
            array->GetLength(length);
            std::vector<std::string> items;
            for (long i = 0; i < length; ++i) {
                Tavi::sptr<AAFwk::IInterface> item;
                array->Get(i, item);
                items.push_back(AAFwk::String::Unbox(AAFwk::IString::Query(item)));
            }
            stringArrays_.emplace_back(key, std::move(items));
        } else {
            std::fprintf(stderr, "floor: no plain form for the value of %s\n", key.c_str());
            std::abort();
        }
    }
    for (const auto& entry : pictureMap) {
        pictures_.emplace_back(entry.first, entry.second);
    }
}

void FloorPlan::Write(WantParams& params, PictureMap& pictureMap) const {
    namespace AAFwk = Tavi::AAFwk;
    for (const auto& [key, value] : strings_) {
        params.SetParam(key, AAFwk::String::Box(value));
    }
    for (const auto& [key, value] : ints_) {
        params.SetParam(key, AAFwk::Integer::Box(value));
    }
    for (const auto& [key, value] : longs_) {
        params.SetParam(key, AAFwk::Long::Box(value));
    }
    for (const auto& [key, value] : bools_) {
        params.SetParam(key, AAFwk::Boolean::Box(value));
    }
    for (const auto& [key, value] : nested_) {
        params.SetParam(key, AAFwk::WantParamWrapper::Box(value));
    }
    for (const auto& [key, items] : stringArrays_) {
        Tavi::sptr<AAFwk::Array> array(
            new AAFwk::Array(static_cast<long>(items.size()), AAFwk::g_IID_IString));
        for (size_t i = 0; i < items.size(); ++i) {
            array->Set(static_cast<long>(i), AAFwk::String::Box(items[i]));
        }
        params.SetParam(key, array);
    }
    for (const auto& [key, list] : pictures_) {
        pictureMap.try_emplace(key, list);
    }
}

size_t FloorPlan::KeyCount() const {
    return strings_.size() + ints_.size() + longs_.size() + bools_.size() + nested_.size() +
           stringArrays_.size();
}

}  // namespace LiveViewBench
