#pragma once

namespace lokera {

/// Names the computer's time zone to the C library, unless somebody has. Without a name it looks at the
/// zone's file at each conversion of a local time, which takes ten times as long as the conversion. Another
/// zone set while the program runs counts from its next start; summer time comes and goes as ever.
void fissa_fuso_orario();

}  // namespace lokera
