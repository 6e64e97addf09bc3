// Unit factors between I-P and SI. Every conversion in the program uses these
// exact constants, in double precision. Where two spellings of one factor
// exist, each is kept for the place that uses it.
#pragma once

namespace solvane::UnitFactor {

// Area: sq.ft <-> sq.m.
inline constexpr double AreaIpToSi = 0.09290304;
inline constexpr double AreaSiToIp = 10.76391;
// Area in the building-type defaults (default floor area per person only).
inline constexpr double DefaultsAreaIpToSi = 0.0929;
// Illuminance: footcandle <-> lux.
inline constexpr double IlluminanceIpToSi = 10.7639104;
inline constexpr double IlluminanceSiToIp = 0.09290304;
// Length: ft <-> m.
inline constexpr double LengthIpToSi = 0.3048;
inline constexpr double LengthSiToIp = 3.28084;
// U-factor: Btu/h sq.ft F <-> W/sq.m K.
inline constexpr double UFactorIpToSi = 5.6782628;
inline constexpr double UFactorSiToIp = 0.1761102;
// Mass per area: lb/sq.ft <-> kg/sq.m.
inline constexpr double MassPerAreaIpToSi = 4.882428;
inline constexpr double MassPerAreaSiToIp = 0.2048161;
// Volume: gallon <-> litre.
inline constexpr double VolumeIpToSi = 3.7854125;
inline constexpr double VolumeSiToIp = 0.264172;
// Air flow: CFM -> l/s is a multiplication, back a division.
inline constexpr double AirFlowCfmToLps = 0.47194744;
// Air flow per area: CFM/sq.ft -> l/s/sq.m is a multiplication, back a division.
inline constexpr double AirFlowPerAreaIpToSi = 5.0799972;
// Power: W -> Btu/h is a multiplication.
inline constexpr double WattToBtuh = 3.412141;
// Energy price: I-P -> SI divides, back multiplies.
inline constexpr double EnergyPrice = 0.1055054762;
// Fan pressure: in. water -> Pa is a multiplication.
inline constexpr double InWaterToPa = 248.8;
// Wind speed: mph <-> m/s.
inline constexpr double WindIpToSi = 0.44704;
inline constexpr double WindSiToIp = 2.236936;
// Daily solar: Btu/sq.ft <-> the SI unit of the weather block.
inline constexpr double SolarIpToSi = 11.3565295;
inline constexpr double SolarSiToIp = 0.08805507;

// Temperature and temperature difference.
constexpr double FahrenheitToCelsius(double f) {
    return (f - 32.0) / 1.8;
}
constexpr double CelsiusToFahrenheit(double c) {
    return c * 1.8 + 32.0;
}
constexpr double DeltaFToDeltaC(double d) {
    return d / 1.8;
}
constexpr double DeltaCToDeltaF(double d) {
    return d * 1.8;
}

// Elevation in the weather block: ft -> m rounds to the nearest metre,
// m -> ft truncates.
long ElevationFeetToMetres(double feet);
long ElevationMetresToFeet(double metres);

}  // namespace solvane::UnitFactor
