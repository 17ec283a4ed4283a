#pragma once

#include <QString>

struct Session;

// Opens the image manager on a bill that is stored; otherwise the message why not. For ToolImg.
void OpenBillImages(Session& session, const QString& billCode, const QString& billName);
