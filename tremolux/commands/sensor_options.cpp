#include "tremolux/commands/sensor_options.h"

#include "library/gyro/sensor_axes.h"
#include "tremolux/commands/option_values.h"

namespace tremolux {

void SensorChoices::SetIn(FormatOptions *options) const {
    if (!rates.empty() && rates != "rad" && rates != "deg") RefuseOption("--rates", rates, "rad or deg");
    if (!rates.empty()) options->rates_in_degrees = rates == "deg";
    if (!axes.empty() && !AxesOfLetters(axes))
        RefuseOption("--sensor-axes", axes, "the letters x, y and z in some order, small ones for the opposite: YxZ");
    options->sensor_axes = axes;
}

void AddSensorOptions(Command command, SensorChoices *choices) {
    command.Add("--rates", &choices->rates,
                "unit of a sensor's table that does not say it: rad or deg, for rates a second and for angles");
    command.Add(
        "--sensor-axes", &choices->axes,
        "of a sensor's table or log: the picture's x (right), y (up) and z (backwards) as letters of the sensor's "
        "axes, a small one for the opposite: YxZ; else what a log says, and of a phone what gravity says");
}

}  // namespace tremolux
