#include "TrayAvailability.h"

#include <QSystemTrayIcon>

namespace tray {

namespace {

TrayOverride *activeOverride = nullptr;

} // namespace

bool available()
{
    return activeOverride ? activeOverride->m_available : QSystemTrayIcon::isSystemTrayAvailable();
}

TrayOverride::TrayOverride(bool available)
    : m_previous(activeOverride)
    , m_available(available)
{
    activeOverride = this;
}

TrayOverride::~TrayOverride()
{
    activeOverride = m_previous;
}

} // namespace tray
