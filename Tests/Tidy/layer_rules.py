"""Rules for includes between layers, and for the headers that only Platform/ may include."""

import re

from source import Finding

BELOW_FEATURES = ("Core", "Services", "Models", "Platform")

# The folders that a file of each layer may include from, besides its own. A file belongs to the
# first layer here that its path begins with.
ALLOWED = {
    "Platform": (),
    "Models": ("Platform",),
    "Core/Support": ("Models", "Platform"),
    "Core/Keychain": ("Core/Support", "Models", "Platform"),
    "Core/Persistence": ("Core/Support", "Models", "Platform"),
    "Services": ("Core/Support", "Models", "Platform"),
    "Core/DesignSystem": ("Core/Support", "Models", "Platform"),
    "Core/DI": (
        "Services", "Core/Keychain", "Core/Persistence", "Core/Support", "Models", "Platform"),
    "Features/MenuBar/Icon": BELOW_FEATURES,
    "Features/MenuBar/Loop": BELOW_FEATURES,
    "Features/CheckIn": ("Features/MenuBar/Loop", *BELOW_FEATURES),
    "Features/MenuBar/Panel": ("Features/CheckIn", "Features/MenuBar/Loop", *BELOW_FEATURES),
    "Features/History": BELOW_FEATURES,
    "Features/Terminal": (
        "Features/History", "Features/CheckIn", "Features/MenuBar/Loop", *BELOW_FEATURES),
    "Features": BELOW_FEATURES,
    "_Probes": ("Features", "Core", "Services", "Models", "Platform"),
    "Quorvel": ("_Probes", "Features", "Core", "Services", "Models", "Platform"),
}

PLATFORM_HEADERS = re.compile(
    r"<(Q(t)?DBus|QtNetwork|QNetwork|QTcp|QUdp|QLocalS|QSsl|QHost|QProcess\b|QClipboard"
    r"|QSystemTrayIcon|QSql|QtSql|xcb/|X11/|SQLiteCpp/|sqlite3|libsecret/|gio/|glib|qrcodegen"
    r"|qpa/|QtGui/qpa)"
)
BUSES_AND_ENVIRONMENT = ("SessionBus::connection", "SystemBus::connection",
                         "QProcessEnvironment::systemEnvironment")
COROUTINES = "Core/Support/Tasks/Task.h"
POSIX_HEADERS = re.compile(r"<(unistd|fcntl|pwd|dlfcn|sys/\w+)\.h>")


def layer_of(path):
    return next((layer for layer in ALLOWED if path.startswith(f"{layer}/")), None)


def includes_stay_below(tree):
    """A file includes only from its own layer and from those below it."""
    for source in tree.sources:
        layer = layer_of(source.path)
        if not layer or not source.is_cpp():
            continue
        visible = tuple(f"{folder}/" for folder in (layer, *ALLOWED[layer]))
        for line, target in source.includes:
            path = target.strip('"')
            if layer_of(path) and not path.startswith(visible):
                yield Finding(source.path, line, f"{layer} does not see {path}")


def platform_headers_stay_in_platform(tree):
    """Only Platform/ includes the headers of the system's services."""
    for source in tree.sources:
        if not source.is_product() or source.is_under("Platform"):
            continue
        for line, target in source.includes:
            posix = POSIX_HEADERS.match(target) and not source.is_under("Quorvel")
            if PLATFORM_HEADERS.match(target) or posix:
                yield Finding(source.path, line, f"{target} belongs under Platform/")


def live_backends_are_picked_in_one_place(tree):
    """Only Quorvel/ names the class that plays a facility for real, or calls what gives one."""
    names = [*sorted(tree.live_backends), *picking_calls(tree)]
    for source in tree.sources:
        if source.is_product() and not source.is_under("Platform", "Quorvel"):
            yield from source.findings(rf"\b({'|'.join(names)})\b", "a live backend is picked")


def defaults_pick_no_live_backend(tree):
    """Whoever needs a facility is handed it: no default argument picks one."""
    parameter = r"(?:[\w>]\s+\w+|[&*]\s*\w*)"
    default = rf"{parameter}\s*=\s*&?({'|'.join(picking_calls(tree))})\b(\(\))?(?=\s*[,)])"
    for source in tree.sources:
        if source.is_product():
            yield from source.findings(default, "a default argument picks a live backend")


def picking_calls(tree):
    """The names of the functions that give a live facility, a bus or the environment."""
    given = r"static (?:const )?(?:(\w+) ?&|std::unique_ptr<(\w+)> )(\w+)\(\)"
    headers = "\n".join(source.code for source in tree.sources
                        if source.is_under("Platform") and source.is_header())
    calls = {f"{reference or pointer}::{name}"
             for reference, pointer, name in re.findall(given, headers)}
    return [*sorted(calls), *BUSES_AND_ENVIRONMENT]


def fakes_stay_out_of_the_product(tree):
    """Only tests include the fakes."""
    for source in tree.sources:
        if source.is_product() and not source.name.startswith("Fake"):
            for line, target in source.includes:
                if re.search(r'[/"]Fake\w+\.h', target):
                    yield Finding(source.path, line, f"{target} is for tests")


def coroutine_library_has_one_door(tree):
    """Only Task.h names the coroutine library."""
    for source in tree.sources:
        if source.is_product() and source.is_cpp() and source.path != COROUTINES:
            yield from source.findings(r"\bQCoro\w*|\bqCoro\b", f"only {COROUTINES} names it")


RULES = [
    includes_stay_below,
    platform_headers_stay_in_platform,
    live_backends_are_picked_in_one_place,
    defaults_pick_no_live_backend,
    fakes_stay_out_of_the_product,
    coroutine_library_has_one_door,
]
