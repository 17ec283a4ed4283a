#pragma once

#include <QString>

// The text with full-width digits, letters, commas, points and minus signs made half-width, as they are typed with an
// input method in full-width mode. As long as before.
QString halfWidth(QString text);
