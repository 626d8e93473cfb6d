#pragma once

namespace morvane {

/// Makes every scale factor a whole number, so that map pixels stay square and sharp. Half factors
/// go up. To be called before the application begins.
void UseWholeScaleFactors();

}  // namespace morvane
