#pragma once

// Parts with descriptions as boards have them, made of a few styles with random values; nearly all
// are different.

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace partwright::bench {

struct Part {
    std::wstring designators;
    std::wstring description;
};

inline std::vector<Part> sampleParts(std::size_t count) {
    std::mt19937 random(11);
    const auto number = [&random](unsigned limit) { return std::to_wstring(1 + random() % limit); };
    const auto pick = [&random](const std::vector<std::wstring>& from) {
        return from[random() % from.size()];
    };
    const std::vector<std::wstring> sizes = {L"0201", L"0402", L"0603", L"0805", L"1206", L"2512"};
    const std::vector<std::wstring> cases = {L"SOT23", L"SOIC", L"SMA", L"SOD123", L"TO-220"};
    std::vector<Part> parts;
    while (parts.size() < count) {
        const std::wstring place = number(900);
        switch (random() % 11) {
        case 0:
            parts.push_back({L"R" + place, L"RES SMD " + number(999) +
                                               pick({L"K OHM ", L" OHM ", L"kOhms ", L"R "}) +
                                               number(10) + L"% 1/10W " + pick(sizes)});
            break;
        case 1:
            parts.push_back({L"C" + place, L"CAP CER " + number(990) +
                                               pick({L"PF ", L"NF ", L"UF "}) + number(100) +
                                               L"V " + pick({L"X7R ", L"X5R ", L"C0G "}) +
                                               pick(sizes)});
            break;
        case 2:
            parts.push_back({L"C" + place, number(99) + L" µF ±20% " + number(50) +
                                               L"V Tantalum Capacitor, " + pick(cases)});
            break;
        case 3:
            parts.push_back(
                {L"D" + place, L"DIODE " + pick({L"SCHOTTKY ", L"ZENER ", L"GEN PURP "}) +
                                   number(200) + L"V " + number(900) + L"MA " + pick(cases)});
            break;
        case 4:
            parts.push_back({L"Q" + place, pick({L"MOSFET N-CH ", L"TRANS NPN ", L"TRANS PNP "}) +
                                               number(200) + L"V " + number(20) + L"A " +
                                               pick(cases)});
            break;
        case 5:
            parts.push_back(
                {L"U" + place, pick({L"IC REG LINEAR ", L"IC OPAMP GP ", L"IC MCU 32BIT "}) +
                                   number(30) + L"V " + number(900) + L"MA " + number(99) +
                                   pick(cases)});
            break;
        case 6:
            parts.push_back({L"L" + place, L"FIXED IND " + number(99) + L"UH " + number(9) + L"A " +
                                               number(900) + L" MOHM SMD"});
            break;
        case 7:
            parts.push_back({L"R" + place, number(999) + L" kOhms ±1% 0.1W, 1/10W Chip Resistor " +
                                               pick(sizes) +
                                               L" (1608 Metric) Automotive AEC-Q200 Thick Film"});
            break;
        case 8:
            parts.push_back({L"C" + place, L"0." + number(990) + L" µF ±10% " + number(200) +
                                               L"V Ceramic Capacitor X7R " + pick(sizes) +
                                               L" (1608 Metric)"});
            break;
        case 9:
            parts.push_back({L"Q" + place, L"N-Channel " + number(200) + L" V " + number(99) +
                                               L"A (Ta) " + number(9) +
                                               L"W (Ta) Surface Mount MOSFET " + pick(cases)});
            break;
        default:
            parts.push_back({L"J" + place, L"CONN HEADER VERT " + number(99) + L"POS " + number(9) +
                                               L"." + number(99) + L"MM"});
            break;
        }
    }
    return parts;
}

} // namespace partwright::bench
