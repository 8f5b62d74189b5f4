// The unit in which the sizes of the windows and columns were designed.
#pragma once

namespace widgets {

inline constexpr int twipsPerInch = 1440;

} // namespace widgets
