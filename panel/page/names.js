// The names that the device knows, in its own order.

export const resolutions = [
    "1024x768p60", "1280x720p50", "1280x720p60", "1280x768p60", "1280x800p60", "1360x768p60", "1600x1200p60",
    "1920x1080p24", "1920x1080p25", "1920x1080p50", "1920x1080p60 (Default)", "1920x1200p60", "2048x1080p60",
    "3840x2160p24", "3840x2160p25", "3840x2160p30", "3840x2160p50", "3840x2160p60", "4096x2160p24", "4096x2160p25",
    "4096x2160p30", "4096x2160p50", "4096x2160p60",
];

export const timings = [
    "Native", "1280x800", "1920x1080", "1024x768", "1280x720", "1920x1200", "1366x768", "800x600", "1600x900",
    "2560x1440", "3840x2160", "1440x900",
];

export const usbModes = ["follow video", "follow usb", "manual"];

/** What may be plugged into an input. */
export const sources = [
    { h: 1280, v: 720, interlace: false, refreshRate: 50, colorDepth: 8, colorMode: "RGB" },
    { h: 1920, v: 1080, interlace: true, refreshRate: 50, colorDepth: 8, colorMode: "YUV422" },
    { h: 1920, v: 1080, interlace: false, refreshRate: 60, colorDepth: 8, colorMode: "RGB" },
    { h: 1920, v: 1200, interlace: false, refreshRate: 60, colorDepth: 8, colorMode: "RGB" },
    { h: 3840, v: 2160, interlace: false, refreshRate: 30, colorDepth: 10, colorMode: "YUV444" },
    { h: 3840, v: 2160, interlace: false, refreshRate: 60, colorDepth: 8, colorMode: "YUV420" },
];

export function formatName({ h, v, interlace, refreshRate, colorDepth, colorMode }) {
    return `${h}×${v}${interlace ? "i" : "p"}${refreshRate} ${colorDepth} bit ${colorMode}`;
}
