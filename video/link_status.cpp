#include "video/link_status.h"

#include "text/text.h"

namespace {

constexpr LinkDevice devices[] = {
    {129, 1, "TR11", false},   {130, 2, "TR120", false},  {145, 17, "TR3100", true}, {146, 18, "TR3422", true},
    {147, 19, "TR3421", true}, {151, 23, "TR3221", true}, {159, 31, "TR3121", true},
};
constexpr LinkDevice noDevice{0, 0, "", false};

bool isTextOf(const char* name, const char* text) {
    return isLinkText(text) && startsWith(text, name) && text[linkLayout.marker.end() - 1] == ':';
}

const LinkDevice* findDevice(unsigned LinkDevice::*column, unsigned code) {
    for (const LinkDevice& device : devices) {
        if (device.*column == code) return &device;
    }
    return &noDevice;
}

}  // namespace

bool isLinkText(const char* text) { return std::strlen(text) == linkTextLength; }

LinkSide::LinkSide(const char* name, const char* text, unsigned LinkDevice::*code)
    : name_(name),
      text_(isTextOf(name, text) ? text : nullptr),
      device_(findDevice(code, digits(linkLayout.deviceType, 0))) {}

unsigned LinkSide::digits(const LinkField& field, std::size_t index) const {
    return text_ == nullptr ? 0 : parseHex(text_ + field.at + index * field.width, field.width);
}
