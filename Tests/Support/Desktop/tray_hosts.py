"""The status areas that a virtual desktop can put along its upper edge."""

XFCE_PANEL_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="{height}"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray">
      <property name="square-icons" type="bool" value="false"/>
      <property name="known-legacy-items" type="empty"/>
    </property>
  </property>
</channel>
"""


def start_trayer(desktop, height, monitor=0):
    """Starts an XEmbed tray and nothing else."""
    return desktop.start(
        "trayer",
        ["trayer", "--edge", "top", "--align", "right", "--widthtype", "request"]
        + ["--heighttype", "pixel", "--height", str(height)]
        + ["--SetDockType", "true", "--SetPartialStrut", "true", "--monitor", str(monitor)],
    )


def start_xfce_panel(desktop, height, toolkit_scale=1):
    """Starts the panel of a common desktop: a StatusNotifierItem host that is also an XEmbed tray.
    Its toolkit supports only whole scales."""
    settings = desktop.config_home / "xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"
    settings.parent.mkdir(parents=True, exist_ok=True)
    settings.write_text(XFCE_PANEL_SETTINGS.format(height=height // toolkit_scale))
    return desktop.start(
        "xfce4-panel", ["xfce4-panel", "--disable-wm-check"], {"GDK_SCALE": str(toolkit_scale)}
    )


def start_swaybar(desktop, height):
    """Starts the bar of a Wayland compositor, a StatusNotifierItem host. The compositor sets its
    height."""
    return desktop.start("swaybar", ["swaybar", "--bar_id", "bar-0"])


STARTERS = {"trayer": start_trayer, "xfce4-panel": start_xfce_panel, "swaybar": start_swaybar}
