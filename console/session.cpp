#include "console/session.h"

std::atomic<int> sessionRunning = 1;
std::atomic<int> sessionAuthenticated = 0;
