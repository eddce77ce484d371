#pragma once

namespace quorvel {

class Appearance;
class LoginItem;
class Pasteboard;
class SystemEvents;
class SystemSettings;

/// What a program with windows needs from the desktop besides its Facilities. Everything must
/// outlive the holder.
struct WindowFacilities
{
    Appearance &appearance;
    Pasteboard &pasteboard;
    SystemSettings &systemSettings;
    SystemEvents &systemEvents;
    LoginItem &loginItem;
};

} // namespace quorvel
