// The catalogue of engines.
#include "engine_kinds.h"

namespace tamlo::soundsmith {

const EngineKind small_car_engine{
    .cycle = EvenFirings({1.0, 0.9, 0.96, 0.86}),
    .pulse = 0.0014,
    .uneven = 0.2,
    .exhaust = {{100, 2, 1.0}, {220, 2, 0.9}, {500, 3, 0.5}},
    .direct = 0.35,
    .gas = 0.5,
    .gas_low_hz = 200,
    .gas_high_hz = 2400,
    .clatter = 0.15,
    .clatter_hz = 2150,
    .drive = 1.5,
    .high_pass_hz = 70,
};

const EngineKind patrol_car_engine{
    .cycle = EvenFirings({1.0, 0.85, 0.95, 0.8, 1.0, 0.9, 0.85, 0.95}),
    .pulse = 0.0015,
    .uneven = 0.2,
    .exhaust = {{75, 1.5, 1.0}, {140, 2, 0.9}, {310, 2.5, 0.6}, {700, 3, 0.3}},
    .direct = 0.4,
    .gas = 0.5,
    .gas_low_hz = 150,
    .gas_high_hz = 2500,
    .clatter = 0.2,
    .clatter_hz = 2300,
    .drive = 1.5,
    .high_pass_hz = 50,
};

const EngineKind wreck_engine{
    .cycle = {{0.0, 1.0}, {0.25, 0.15}, {0.5, 0.8}, {0.77, 0.45}},
    .pulse = 0.0014,
    .uneven = 0.9,
    .exhaust = {{140, 2.5, 1.0}, {330, 3, 1.0}, {610, 4, 0.8}, {1250, 5, 0.4}},
    .direct = 0.5,
    .gas = 0.8,
    .gas_low_hz = 300,
    .gas_high_hz = 4000,
    .clatter = 0.9,
    .clatter_hz = 2700,
    .drive = 2.0,
    .high_pass_hz = 90,
};

const EngineKind truck_engine{
    .cycle = EvenFirings({1.0, 0.8, 0.93, 0.85, 0.97, 0.78}),
    .pulse = 0.0017,
    .uneven = 0.2,
    .exhaust = {{68, 1.6, 1.0}, {125, 2, 1.0}, {240, 2.5, 0.9}, {520, 3, 0.8}, {1150, 3, 0.5}},
    .direct = 0.4,
    .gas = 0.8,
    .gas_low_hz = 150,
    .gas_high_hz = 3500,
    .clatter = 1.1,
    .clatter_hz = 1850,
    .drive = 2.0,
    .high_pass_hz = 55,
};

const EngineKind bus_engine{
    .cycle = EvenFirings({1.0, 0.82, 0.94, 0.86, 0.98, 0.8}),
    .pulse = 0.0017,
    .uneven = 0.2,
    .exhaust = {{80, 1.6, 1.0}, {145, 2, 1.0}, {280, 2.5, 0.7}, {580, 3, 0.3}},
    .direct = 0.2,
    .gas = 0.4,
    .gas_low_hz = 120,
    .gas_high_hz = 1100,
    .clatter = 0.06,
    .clatter_hz = 1750,
    .drive = 1.4,
    .high_pass_hz = 65,
};

const EngineKind locomotive_engine{
    .cycle = EvenFirings({1.0, 0.85, 0.95, 0.8, 1.0, 0.9, 0.75, 0.95}),
    .pulse = 0.003,
    .uneven = 0.2,
    .exhaust = {{55, 1.5, 1.0}, {92, 2, 1.0}, {190, 2, 0.8}, {420, 2.5, 0.5}, {900, 3, 0.35}},
    .direct = 0.3,
    .gas = 0.7,
    .gas_low_hz = 120,
    .gas_high_hz = 2500,
    .clatter = 0.15,
    .clatter_hz = 1700,
    .drive = 1.8,
    .high_pass_hz = 40,
};

const EngineKind twin_engine{
    .cycle = {{0.0, 1.0}, {0.4375, 0.85}},
    .pulse = 0.0013,
    .uneven = 0.35,
    .exhaust = {{90, 2, 0.8}, {175, 2.5, 1.0}, {340, 3, 1.1}, {690, 3, 0.9}, {1450, 4, 0.6}},
    .direct = 0.6,
    .gas = 0.8,
    .gas_low_hz = 200,
    .gas_high_hz = 3600,
    .clatter = 0.35,
    .clatter_hz = 2500,
    .drive = 2.4,
    .high_pass_hz = 70,
};

const EngineKind racy_engine{
    .cycle = EvenFirings({1.0, 0.9, 0.96, 0.9, 1.0, 0.88}),
    .pulse = 0.0005,
    .uneven = 0.12,
    .exhaust = {{240, 2, 0.8}, {520, 2.5, 1.0}, {1150, 3, 1.1}, {2200, 4, 1.1}, {3600, 4, 0.7}},
    .direct = 0.5,
    .gas = 0.8,
    .gas_low_hz = 500,
    .gas_high_hz = 6500,
    .clatter = 0.1,
    .clatter_hz = 4200,
    .drive = 2.0,
    .high_pass_hz = 120,
};

}  // namespace tamlo::soundsmith
