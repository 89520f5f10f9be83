#include "modZQT.h"

#include "platform/sound.h"
#include "toolkit/failures.h"

bool gblnfInitMCI(platform::MMControl& control, bool wait, bool shareable, int16_t updateInterval,
                  const std::string& fileName, const std::string& deviceType) {
    return guarded("gblnfInitMCI", [&] {
        control.setWait(wait);
        control.setShareable(shareable);
        control.setUpdateInterval(updateInterval);
        control.setFileName(fileName);
        control.setDeviceType(deviceType);
        if (control.mode() != platform::modeOpen) control.setCommand("Open");
        return true;
    });
}
