#pragma once

/// True while the output runs through the scaler, when picture adjustments make sense; false also when the setting
/// cannot be read.
bool readScalerModeStatus();
