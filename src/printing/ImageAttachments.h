#pragma once

#include <QString>

struct Session;

// Opens the image manager on a bill that is stored; otherwise the message why not. For ToolImg.
void OpenBillImages(Session& session, const QString& billCode, const QString& billName);

// Removes the image rows of a bill that has been deleted; the files behind them belong to the image
// manager. The kind of bill is part of the key, so another bill of the same code keeps its images.
void DeleteBillImages(Session& session, const QString& billCode, const QString& billName);
