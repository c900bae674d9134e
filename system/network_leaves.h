/// The network leaves that stand in more than one place.
#pragma once

inline constexpr char bootProtoLeaf[] = R"({"network":{"eth0":{"bootProto":"%s"}}})";

inline constexpr char loginModeLeaf[] = R"({"network":{"telnet":{"loginMode":%s}}})";
inline constexpr char timeoutLeaf[] = R"({"network":{"telnet":{"tcpipTimeout":%d}}})";
inline constexpr char hostNameLeaf[] = R"({"network":{"netbios":{"hostname":"%s"}}})";
inline constexpr char telnetPortLeaf[] = R"({"network":{"telnet":{"telnetPort":%d}}})";

/// In the settings store the configured address, in the status store the one in effect.
inline constexpr char ipAddressLeaf[] = R"({"network":{"eth0":{"ipSettings":{"ipaddr":"%s"}}}})";
inline constexpr char netmaskLeaf[] = R"({"network":{"eth0":{"ipSettings":{"netmask":"%s"}}}})";
inline constexpr char gatewayLeaf[] = R"({"network":{"eth0":{"ipSettings":{"gateway":"%s"}}}})";
