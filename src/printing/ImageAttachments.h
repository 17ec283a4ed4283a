#pragma once

#include <QString>

struct Session;

// Opens the image manager on a stored bill, or shows why not. For ToolImg.
void OpenBillImages(Session& session, const QString& billCode, const QString& billName);
