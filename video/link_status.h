/// What the HDBaseT chips at both ends of the link report about its quality.
#pragma once

#include <cstddef>

/// Where a value, or a row of them, stands in a status text: hexadecimal digits, the most significant first.
struct LinkField {
    std::size_t at;
    std::size_t width;
    std::size_t count = 1;

    constexpr std::size_t end() const { return at + width * count; }
};

/// The layout of a status text. Rows of channels stand in the order D, C, B, A.
inline constexpr struct {
    LinkField marker{0, 3};
    LinkField deviceType{3, 2};
    LinkField status{5, 2};
    LinkField tmdsClock{7, 8};
    LinkField mse{15, 8, 4};
    LinkField maxError{47, 2, 4};
    LinkField cableLength{55, 2};
    LinkField bitErrors{57, 8};
    LinkField retransmissions{65, 8};
} linkLayout;

inline constexpr std::size_t linkTextLength = linkLayout.retransmissions.end();
static_assert(linkTextLength == 73);

/// True for a text of the right length.
bool isLinkText(const char* text);

/// A model of the devices that can stand at either end. An unknown one is named, but some reports leave it out.
struct LinkDevice {
    unsigned transmitterCode;
    unsigned receiverCode;
    const char* model;
    bool isKnown;
};

/// One end of the link, over a status text that outlives it. A text of another length or without its marker ("TX:" or
/// "RX:") reads as 0 throughout.
class LinkSide {
  public:
    /// `name` is "TX" or "RX", `code` the column of device codes that holds for this side.
    LinkSide(const char* name, const char* text, unsigned LinkDevice::*code);

    const char* name() const { return name_; }

    /// Empty for a device that is not listed.
    const char* model() const { return device_->model; }
    bool isKnown() const { return device_->isKnown; }
    bool isHotPlugged() const { return (status() & 1) != 0; }
    bool hasFiveVolts() const { return (status() & 4) != 0; }

    /// A value as it is shown and stored: its 32 bits taken with a sign.
    int number(const LinkField& field) const { return static_cast<int>(digits(field, 0)); }
    int channel(const LinkField& field, char letter) const {
        return static_cast<int>(digits(field, static_cast<std::size_t>('D' - letter)));
    }

    /// The status text; null where it is not one of this side.
    const char* text() const { return text_; }

  private:
    unsigned digits(const LinkField& field, std::size_t index) const;
    unsigned status() const { return digits(linkLayout.status, 0); }

    const char* name_;
    const char* text_;
    const LinkDevice* device_;
};

struct LinkEnds {
    LinkSide transmitter;
    LinkSide receiver;
};

/// Writes the decoded values of both ends into the status store, one document at a time. A refused one is reported on
/// standard error, and the others are written all the same. Which values are written depends on the two devices, and
/// differs between the sides (oddity 36).
void updateLinkStatus(const LinkEnds& link);
