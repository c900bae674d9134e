/// The device root: the one folder under which a host device keeps everything.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// The environment variable with the root, for all processes of a device.
inline constexpr char deviceRootVariable[] = "DEVICE_ROOT";

/// The absolute path of the root without a slash at its end: from the environment, else the working folder.
const std::string& deviceRoot();

/// A path below the root: inRoot("log/calls").
std::string inRoot(std::string_view path);

/// Makes `path` the root of this process and of those it starts. Call it before anything else asks for the root.
void setDeviceRoot(const std::string& path);

}  // namespace host
