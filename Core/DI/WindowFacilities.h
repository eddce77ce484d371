#pragma once

namespace quorvel {

class Appearance;
class LoginItem;
class Pasteboard;
class SystemEvents;
class SystemSettings;

/// What a program with windows asks of the desktop besides its Facilities. Everything outlives
/// whoever holds this.
struct WindowFacilities
{
    Appearance &appearance;
    Pasteboard &pasteboard;
    SystemSettings &systemSettings;
    SystemEvents &systemEvents;
    LoginItem &loginItem;
};

} // namespace quorvel
