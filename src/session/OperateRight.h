#pragma once

#include "screen/Desk.h"

#include <QString>

#include <optional>

struct Session;

// Checked before every guarded action. Nothing is cached, so a change of rights in the main program takes effect at
// once.
enum class RightKind { Read = 1, Edit = 2, Delete = 3, Print = 4, Auditing = 5 };

// True if the operator may; every refusal has been shown when it returns. In a cloud session the
// login guard comes first, also for the administrator "系统管理员", who may do everything else.
bool CheckOperateRight(Session& session, const QString& operatorName, const QString& functionName, RightKind kind);
// The same for the operator of the session: the refusal, which is not shown, or nothing.
std::optional<Desk::Box> OperateRefusal(Session& session, const QString& functionName, RightKind kind);

// True if this machine is the one on which the cloud account last logged on; a refusal has been shown.
bool CheckCloudAccountLogin(Session& session);

// The text that identifies this machine, as the suite's login stores it.
QString GetTerminalCode(const Session& session);
