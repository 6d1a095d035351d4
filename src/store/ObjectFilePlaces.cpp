#include "store/ObjectFilePlaces.h"

#include "store/FileForm.h"
#include "store/NamedClasses.h"
#include "store/RepairTable.h"

namespace corvane {
namespace {

constexpr uint32_t kBehaviourUnits = 2;  // of the word that the file form drops
constexpr uint32_t kStartOfNext =
    254;  // half offset of a plain class's start, counted from the object before it

bool IsVoiceRecord(uint32_t place) {
    using namespace named;
    return place >= kVoiceRecords && place < kVoiceRecords + kVoiceRecordCount * kVoiceRecordSize &&
           (place - kVoiceRecords) % kVoiceRecordSize == 0;
}

// The end of the same relation in another class that this end's link points at.
const LinkField* PartnerIn(const ClassInfo& target, const LinkField& link) {
    const LinkRole role = link.role == LinkRole::Source ? LinkRole::Last : LinkRole::Next;
    const LinkField* end = target.EndOf(role, link.relation, link.family);
    return !end && link.other ? target.EndOf(role, link.other, link.family) : end;
}

ObjectFilePlaces::End EndIn(const ClassInfo& holder, const LinkField& link, const ClassInfo& target) {
    const LinkField* end = PartnerIn(target, link);
    if (!end) return {};
    const int plain = end->offset / 2 - static_cast<int>(kBehaviourUnits);
    return {static_cast<uint8_t>(end->offset),
            static_cast<uint8_t>(plain + SaveAddOf(holder.number, link.offset, target.number)),
            static_cast<uint8_t>(FileForm::Of(target.number).PlaceInFile(end->offset) / 2)};
}

}  // namespace

const ObjectFilePlaces& ObjectFilePlaces::Instance() {
    static const ObjectFilePlaces places;
    return places;
}

ObjectFilePlaces::ObjectFilePlaces() : _fields(static_cast<size_t>(ClassCount()) + 1) {
    for (int16_t holder = 1; holder <= ClassCount(); ++holder)
        for (const LinkField& link : InfoOf(holder)->links) {
            Field& field = _fields[static_cast<size_t>(holder)].emplace_back(Field{link, {}});
            if (link.role == LinkRole::Whole) continue;
            field.ends.resize(_fields.size());
            for (int16_t target = 1; target <= ClassCount(); ++target)
                field.ends[static_cast<size_t>(target)] = EndIn(*InfoOf(holder), link, *InfoOf(target));
        }
}

bool AimFits(Aim aim, int16_t target, uint32_t place) {
    if (aim == Aim::Record) return target == named::kDocStaff && IsVoiceRecord(place);
    if (place != 0) return false;
    switch (aim) {
        case Aim::Any:
            return true;
        case Aim::Raw:
            return target == kRawClass;
        case Aim::Text:
            return target == kRawClass || target == named::kStringa;
        case Aim::Symbol:
            return target == named::kCompositeSymbol || target == named::kSimpleFont;
        case Aim::Font:
            return target == named::kTarnFont;
        case Aim::DocStaff:
            return target == named::kDocStaff;
        case Aim::Time:
            return target == named::kTime;
        case Aim::Staff:
            return target == named::kSimpleStaff || target == named::kStaffBot;
        case Aim::GenericText:
            return target == named::kGenericText;
        case Aim::Record:
            break;
    }
    return false;
}

bool PointerFits(const ObjectFilePlaces::Field& field, int16_t targetClass, uint32_t place) {
    if (field.link.role == LinkRole::Whole) return AimFits(field.link.aim, targetClass, place);
    return place && place == field.ends[static_cast<size_t>(targetClass)].place;
}

bool EncodePointer(const ObjectFilePlaces::Field& field, int16_t targetClass, PointerTarget target,
                   uint32_t& value) {
    value = target.number << 8;
    if (field.link.role != LinkRole::Whole)
        value |= field.ends[static_cast<size_t>(targetClass)].saved;
    else if (target.place)
        value |= target.place / 2 - kBehaviourUnits;
    else if (!IsSpecialTarget(targetClass))
        value -= kBehaviourUnits;
    return PointerFits(field, targetClass, target.place);
}

bool DecodePointer(const ObjectFilePlaces::Field& field, uint32_t value, std::span<const uint8_t> classes,
                   PointerTarget& target) {
    const uint32_t half = value & 255;
    target = {value >> 8, 0};
    if (field.link.role == LinkRole::Whole && half == kStartOfNext) {
        if (++target.number >= classes.size() || IsSpecialTarget(classes[target.number])) return false;
    } else if (target.number == 0 || target.number >= classes.size()) {
        return false;
    } else if (field.link.role != LinkRole::Whole) {
        const ObjectFilePlaces::End& end = field.ends[classes[target.number]];
        target.place = end.place;
        return end.place && (half == end.saved || half == end.inFile);
    } else if (half) {
        target.place = (half + kBehaviourUnits) * 2;
    }
    return AimFits(field.link.aim, classes[target.number], target.place);
}

}  // namespace corvane
