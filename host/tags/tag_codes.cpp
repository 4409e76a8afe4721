// The table of tag codes.
#include "host/tags/tag_codes.h"

#include <array>

namespace host {
namespace {

constexpr int kLastCode = 1071;

struct Range {
    int last;
    TagType type;
};

// Each range begins behind the one before it.
constexpr Range kRanges[] = {
    {4, TagType::Text},           {5, TagType::OwnHandle},     {9, TagType::Text},
    {18, TagType::Point},         {37, TagType::Coordinate},   {59, TagType::Real},
    {79, TagType::Int16},         {89, TagType::None},         {99, TagType::Int32},
    {102, TagType::Text},         {104, TagType::None},        {105, TagType::OwnHandle},
    {109, TagType::None},         {112, TagType::Point},       {119, TagType::Coordinate},
    {149, TagType::Real},         {159, TagType::None},        {169, TagType::Int64},
    {179, TagType::Int16},        {209, TagType::None},        {210, TagType::Point},
    {239, TagType::Coordinate},   {269, TagType::None},        {289, TagType::Int16},
    {299, TagType::Bool},         {309, TagType::Text},        {319, TagType::Binary},
    {329, TagType::Handle},       {339, TagType::SoftPointer}, {349, TagType::HardPointer},
    {359, TagType::SoftOwner},    {369, TagType::HardOwner},   {389, TagType::Int16},
    {399, TagType::HardPointer},  {409, TagType::Int16},       {419, TagType::Text},
    {429, TagType::Int32},        {439, TagType::Text},        {459, TagType::Int32},
    {469, TagType::Real},         {479, TagType::Text},        {481, TagType::HardPointer},
    {999, TagType::None},         {1003, TagType::Text},       {1004, TagType::Binary},
    {1005, TagType::SoftPointer}, {1009, TagType::Text},       {1013, TagType::Point},
    {1037, TagType::Coordinate},  {1039, TagType::None},       {1042, TagType::Real},
    {1069, TagType::None},        {1070, TagType::Int16},      {kLastCode, TagType::Int32},
};

constexpr std::array<TagType, kLastCode + 1> typesByCode() {
    std::array<TagType, kLastCode + 1> types{};
    int code = 0;
    for (const Range& range : kRanges) {
        for (; code <= range.last; ++code)
            types[code] = range.type;
    }
    return types;
}

constexpr std::array<TagType, kLastCode + 1> kTypes = typesByCode();

}  // namespace

TagType tagTypeOf(int code) {
    return code >= 0 && code <= kLastCode ? kTypes[code] : TagType::None;
}

}  // namespace host
