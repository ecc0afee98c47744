#pragma once

// Whether the desktop shows tray icons. A plain X session or a stock GNOME has no tray: a
// window hidden there would be gone for good. While a TrayOverride is alive the answer is its
// own, so tests decide it.
namespace tray {

bool available();

class TrayOverride
{
public:
    explicit TrayOverride(bool available);
    ~TrayOverride();
    TrayOverride(const TrayOverride &) = delete;
    TrayOverride &operator=(const TrayOverride &) = delete;

private:
    friend bool available();
    TrayOverride *m_previous;
    bool m_available;
};

} // namespace tray
