#include "host/store/defaults.h"

namespace host {

const char* const defaultSettings = R"json({
  "account": {
    "users": [{"username": "root", "password": "root", "level": "Administrator"}]
  },
  "audio": {
    "audOut": {
      "allMute": false,
      "analogOut1": {
        "audioSinkControl": {
          "volume": -20, "mute": false,
          "eq63hz": 0, "eq85hz": 0, "eq250hz": 0, "eq1khz": 0, "eq4khz": 0
        }
      }
    }
  },
  "control": {
    "autoSwitch": {"autoSWEnable": false, "aswOutTime": 10, "aswFstTime": 10},
    "displayControl": {
      "output1": {
        "buttonControl": {"power": "off"},
        "controlType": "rs-232",
        "feedbackVerify": false,
        "relay": {
          "relayAct1": "open", "relayAct2": "open", "relayAuto": false, "relayType": "closed", "relayPulseT": 1
        },
        "remoteNetworkDevice": {
          "mode": "non-login", "username": "admin", "password": "admin", "ipAddr": "127.0.0.1", "port": 5000
        },
        "timer": {"autoPwrOff": 300, "warmUp": 30, "lampCoolDown": 30},
        "triger": {
          "cec": "off",
          "command": {
            "commandWait": false, "repeat": false, "repeatTimes": 1, "sendMode": "ascii",
            "content": {
              "on": "50 57 52 20 4F 4E", "feedbackOn": "4F 4B",
              "off": "50 57 52 20 4F 46 46", "feedbackOff": "4F 4B",
              "mute": "4D 55 54 45", "feedbackMute": "4F 4B",
              "volumePlus": "56 4F 4C 2B", "volumeMinus": "56 4F 4C 2D"
            },
            "end": {
              "on": "CR", "feedbackOn": "CR",
              "off": "CR", "feedbackOff": "CR",
              "mute": "CR", "feedbackMute": "CR",
              "volumePlus": "CR", "volumeMinus": "CR"
            }
          }
        }
      }
    },
    "ledMode": false,
    "localUsbLogic": {"manualHost": "local", "switchMode": "follow video"},
    "usbLogic": {"usbFallBack": "off"}
  },
  "network": {
    "eth0": {
      "bootProto": "DHCP",
      "ipSettings": {"ipaddr": "192.0.2.20", "netmask": "255.255.255.0", "gateway": "192.0.2.1"}
    },
    "netbios": {"hostname": "switcher"},
    "ssh": {"sshPort": 22},
    "telnet": {"telnetPort": 2323, "tcpipTimeout": 0, "loginMode": false}
  },
  "system": {
    "broadcast": true,
    "inputBroadcast": true,
    "dbg977": false,
    "debug": false,
    "firmwareVersionTR3421Rx": "1.0.0",
    "key": {"lock": false},
    "model": "TR3421-21",
    "systemDebugMode": "",
    "uart": {
      "interface1": {"baudrate": 57600, "databit": 8, "parity": 0, "stopbit": 1},
      "interface2": {"baudrate": 9600, "databit": 8, "parity": 0, "stopbit": 1},
      "interface3": {"baudrate": 9600, "databit": 8, "parity": 0, "stopbit": 1}
    }
  },
  "video": {
    "colorSetting": {"brt": 30, "ctrst": 30, "satrt": 30, "hue": 30, "sharp": 30, "pictureRst": 0},
    "vidIn": {
      "hdbtIn": {"hdbtIn1": {"hdcpMode": "compliant", "preferTiming": "Native"}},
      "hdmiIn": {"hdmiIn1": {"hdcpMode": "compliant", "preferTiming": "Native"}}
    },
    "vidOut": {
      "hdmiOut": {
        "hdmiOutA": {
          "aspect": "follow",
          "audioMute": false,
          "hZoom": 0, "vZoom": 0, "zoomEnable": false,
          "osd": {"text": {"content": "57 65 6C 63 6F 6D 65"}},
          "resolution": "1920x1080p60 (Default)",
          "videoSrc": 1
        }
      }
    },
    "vidProcess": {
      "EDID": {"edidMSet1": "default", "edidMSet2": "default", "edidOutMem1": 1},
      "scaler": {"scalerMode": true}
    }
  }
})json";

const char* const defaultStatus = R"json({
  "control": {
    "displayControl": {"output1": {"transmission": {"rs232": false, "telnet": false}}}
  },
  "device": {
    "deviceVersion": {"others": {"mcu4": {"version": "1.0.0"}}},
    "modelName": "TR3421-21"
  },
  "network": {
    "eth0": {
      "ipSettings": {"ipaddr": "192.0.2.20", "netmask": "255.255.255.0", "gateway": "192.0.2.1"},
      "linkStatus": true,
      "macAddr": "02:00:00:12:34:56"
    },
    "http": {"bruteForceAttacks": {"loginFailedList": []}},
    "valens": {"linkStatus": true}
  },
  "system": {
    "debug": false,
    "slaveMcu": {"isReady": true},
    "update": {"progressEvent": {"isOn": false}}
  },
  "video": {
    "vidIn": {
      "hdbtIn": {
        "hdbtIn1": {
          "colorDepth": 8,
          "colorMode": "RGB",
          "connected": true,
          "linkMonitoring": {
            "RX": {
              "5Vstatus": true, "HPDstatus": true, "TMDSClock": 148, "cableLength": 10, "chipType": "TR3421",
              "MSE": {"channelA": 0, "channelB": 0, "channelC": 0, "channelD": 0},
              "allHexString": "RX:130500000094000000000000000000000000000000000000000A0000000000000000",
              "maxErr": {"channelA": 0, "channelB": 0, "channelC": 0, "channelD": 0},
              "retr": 0, "totalBER": 0
            },
            "TX": {
              "5Vstatus": true, "HPDstatus": true, "TMDSClock": 148, "cableLength": 10, "chipType": "TR3421",
              "MSE": {"channelA": 0, "channelB": 0, "channelC": 0, "channelD": 0},
              "allHexString": "TX:930500000094000000000000000000000000000000000000000A0000000000000000",
              "maxErr": {"channelA": 0, "channelB": 0, "channelC": 0, "channelD": 0}
            },
            "requestStatusValue": "",
            "respondFrom": "",
            "trigerBy": ""
          },
          "videoTiming": {"h": 1920, "interlace": false, "refreshRate": 60, "stable": true, "v": 1080}
        }
      },
      "hdmiIn": {
        "hdmiIn1": {
          "colorDepth": 8,
          "colorMode": "RGB",
          "connected": true,
          "videoTiming": {"h": 1920, "interlace": false, "refreshRate": 60, "stable": true, "v": 1080}
        }
      }
    }
  }
})json";

}  // namespace host
