#pragma once

namespace morvane {

/// Makes every scale factor a whole number, so that map pixels stay square and sharp. Half factors
/// are rounded up. Call it before the application object is created.
void UseWholeScaleFactors();

}  // namespace morvane
