#pragma once

#include <QString>

namespace lokera {

// Texts are written u"..."_s and "..."_L1 everywhere; a header may use them through this one.
using namespace Qt::StringLiterals;

}  // namespace lokera
