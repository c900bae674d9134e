/// The device's two physical inputs and where the stores keep what belongs to each.
#pragma once

#include "text/fixed_text.h"

struct VideoInput {
    const char* group;
    const char* name;
};

inline constexpr VideoInput hdbtInput{"hdbtIn", "hdbtIn1"};
inline constexpr VideoInput hdmiInput{"hdmiIn", "hdmiIn1"};

/// The input that a row's name ends in: "InputFormat1" is the HDBaseT input, "InputFormat2" the HDMI input.
inline const VideoInput& inputOfRow(const char* rowName) {
    return rowName[std::strlen(rowName) - 1] == '2' ? hdmiInput : hdbtInput;
}

using InputLeaf = FixedText<128>;

/// The template of a leaf below the input, such as {"connected":%s}.
inline InputLeaf leafOf(const VideoInput& input, const char* below) {
    InputLeaf leaf;
    leaf.appendFormat("{\"video\":{\"vidIn\":{\"%s\":{\"%s\":%s}}}}", input.group, input.name, below);
    return leaf;
}
