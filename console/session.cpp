#include "console/session.h"

constinit std::atomic<int> sessionRunning = 1;
constinit std::atomic<int> sessionAuthenticated = 0;
constinit std::atomic<int> sessionListening = 1;
