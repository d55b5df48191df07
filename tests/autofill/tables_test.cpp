// The two compiled row tables, checked as they stand: how many rows a key has, the rows whose text
// is fixed, and that every rule leads somewhere.

#include "autofill/param_rule_rows.h"
#include "autofill/unit_table_rows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cwchar>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace partwright {
namespace {

using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;
using RowKey = std::tuple<int, int, int>;

std::map<std::wstring, Pairs> unitLists() {
    std::map<std::wstring, Pairs> lists;
    for (const UnitRow& row : unitTableRows)
        lists[std::wstring(row.key)].emplace_back(row.name, row.value);
    return lists;
}

// "Kv=1000, V=1" as pairs.
Pairs parsePairs(std::wstring text) {
    Pairs pairs;
    text += L", ";
    for (size_t begin = 0, end; begin < text.size(); begin = end + 2) {
        end = text.find(L", ", begin);
        const std::wstring item = text.substr(begin, end - begin);
        const size_t mark = item.rfind(L'=');
        pairs.emplace_back(item.substr(0, mark), item.substr(mark + 1));
    }
    return pairs;
}

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

// clang-format off
const std::pair<const wchar_t*, size_t> keyCounts[] = {
    {L"AccessTime", 3}, {L"Area", 1}, {L"AWG", 21}, {L"AWG1", 1}, {L"AWG2", 9}, {L"AWG3", 1},
    {L"BIP", 2}, {L"BIT", 24}, {L"Cap", 10}, {L"Cap1", 8}, {L"CASE_30050", 41},
    {L"CASE_30320", 30}, {L"CASE_BEL", 5}, {L"CASE_IC1", 55}, {L"CASE_IC13", 41},
    {L"CASE_IC2", 18}, {L"CASE_IC21", 50}, {L"CASE_IC22", 54}, {L"CASE_LED13", 10},
    {L"CASE_OPT13", 169}, {L"CASE_OPT21", 169}, {L"CASE_RES_V", 19}, {L"CASE_RES_W", 18},
    {L"CASE_SEM1", 27}, {L"CASE_SEM13", 129}, {L"CASE_SEM21", 120}, {L"CASE_TRAN13", 91},
    {L"CASE_TRAN21", 74}, {L"CASE_uD21", 66}, {L"CASE_uIC21", 43}, {L"CASE_uOPT21", 107},
    {L"CASE_uTRAN21", 45}, {L"Cbc", 2}, {L"Cbe", 2}, {L"Ciss", 2}, {L"COLOUR", 3},
    {L"CONT_BELL", 4}, {L"ContPair", 7}, {L"ContPole", 1}, {L"Coss", 2}, {L"Crss", 2},
    {L"CSC", 4}, {L"DataBus", 2}, {L"dB", 3}, {L"Delay", 2}, {L"DIODES", 2}, {L"ECC", 2},
    {L"ECC22", 4}, {L"EIA_Code", 3}, {L"F", 8}, {L"F_GHZ", 8}, {L"FG", 8}, {L"FORM", 9},
    {L"FORM_Break", 4}, {L"FR100", 18}, {L"FR25", 18}, {L"FR40", 18}, {L"FR55", 18},
    {L"FR70", 18}, {L"FR85", 18}, {L"GATE", 7}, {L"H2uH", 8}, {L"Hermeticity", 5}, {L"hfe", 2},
    {L"HorScan", 1}, {L"HYBR_Cap", 2}, {L"HYBR_Con", 2}, {L"HYBR_Res", 2}, {L"I", 8},
    {L"I_S1", 1}, {L"I_SRG", 2}, {L"Ib", 2}, {L"Ic", 2}, {L"Icncap", 1}, {L"Icnind", 1},
    {L"Icnlamp", 1}, {L"Id_Oper", 2}, {L"If", 2}, {L"Igt", 2}, {L"Iinp_max", 2}, {L"I-Lkg", 2},
    {L"INCH", 1}, {L"Ion", 2}, {L"Iout_max", 2}, {L"Ip2p", 2}, {L"Ir", 6}, {L"KBIT", 16},
    {L"KG", 4}, {L"Layer", 3}, {L"LIST_100160", 10}, {L"LIST_100161", 2}, {L"LIST_100162", 7},
    {L"LIST_100164", 4}, {L"LIST_100260", 6}, {L"LIST_100262", 3}, {L"LIST_100360", 2},
    {L"LIST_100461", 3}, {L"LIST_100462", 2}, {L"LIST_100463", 3}, {L"LIST_100465", 2},
    {L"LIST_100560", 6}, {L"LIST_100561", 2}, {L"LIST_100564", 3}, {L"LIST_100565", 3},
    {L"LIST_100566", 5}, {L"LIST_100567", 3}, {L"List_102411", 4}, {L"LIST_130611", 3},
    {L"List_14610", 3}, {L"List_231110", 2}, {L"List_231111", 3}, {L"List_231710", 3},
    {L"List_232210", 5}, {L"MAT_CONT", 3}, {L"MBIT", 13}, {L"Metal", 3}, {L"Moulding", 5},
    {L"Msubstr_30340", 12}, {L"N_S1", 1}, {L"nS", 5}, {L"Offset", 2}, {L"Optos", 2}, {L"Pair", 2},
    {L"Pin1", 2}, {L"Pin2", 2}, {L"Pin-A", 1}, {L"Pin-Base", 2}, {L"Pin-C", 1}, {L"Pin-Coil1", 2},
    {L"Pin-Coil2", 2}, {L"Pin-Collec", 2}, {L"Pin-Drain", 2}, {L"Pin-Emit", 2}, {L"Pin-G", 1},
    {L"Pin-Gate", 2}, {L"Pin-Gnd", 3}, {L"Pin-Inp", 2}, {L"Pin-Out", 2}, {L"Pinp_max", 2},
    {L"PINs", 12}, {L"Pins_11", 1}, {L"Pins_12", 1}, {L"Pin-Source", 2}, {L"Pin-Vspl", 2},
    {L"POINT", 5}, {L"PROC", 37}, {L"PROC1", 2}, {L"PROCES", 3}, {L"Pw", 5}, {L"Pw_rip", 2},
    {L"PwAC", 5}, {L"Pwf", 2}, {L"PwLO", 2}, {L"PwOUT", 2}, {L"Qcap", 1}, {L"QCONN", 1},
    {L"Qkeys", 3}, {L"QntCont", 4}, {L"QntFuse", 3}, {L"QntHeads", 1}, {L"QntRes", 3},
    {L"Qres", 1}, {L"Rcoil", 2}, {L"RCOIL1", 1}, {L"RCOIL2", 1}, {L"Rel_FORM", 10}, {L"Res", 23},
    {L"RES_LOAD", 2}, {L"ResZero", 2}, {L"Rja", 2}, {L"Rjc", 2}, {L"SEG", 4}, {L"SI", 8},
    {L"T", 3}, {L"T_CAPAdd", 12}, {L"TECH_Amp", 5}, {L"TECH_BELL1", 3}, {L"TECH_BELL2", 4},
    {L"TECH_IC_1", 20}, {L"TECH_IC_22", 9}, {L"TECH_IC_22A", 3}, {L"TECH_IC_22B", 4},
    {L"TECH_IC_22C", 4}, {L"TECH_IC_22D", 5}, {L"Transistor", 8}, {L"V", 10}, {L"Vbe_sat", 2},
    {L"Vc", 6}, {L"Vcb", 2}, {L"Vce_sat", 2}, {L"Veb", 2}, {L"Vf", 2}, {L"Vgd", 2}, {L"Vgs", 2},
    {L"Vgs_off", 4}, {L"Vgt", 2}, {L"Vinp_max", 2}, {L"Von", 2}, {L"Vopr_max", 2}, {L"Vout", 2},
    {L"Vout_max", 2}, {L"Vr", 4}, {L"Vrec_max", 2}, {L"Vspl_max", 2}, {L"Vsrg", 2}, {L"Year", 4},
};

// Lists whose every row and order is fixed.
const std::pair<const wchar_t*, const wchar_t*> fixedLists[] = {
    {L"V", L"Kv=1000, kV=1000, KV=1000, mV=0.001, MV=1000000, uV=0.000001, V/=1, V=1, v=1, VOLT=1"},
    {L"I", L"/A=1, A=1, kA=1000, mA=0.001, MA=0.001, ma=0.001, nA=0.000000001, uA=0.000001"},
    {L"Pw", L"/W=1, kW=1000, mW=0.001, MW=0.001, W=1"},
    {L"PwAC", L"/kVA=1000, /VA=1, kVA=1000, MVA=1000000, VA=1"},
    {L"Res", L"dOHM=0.1, E=1, G=1000000000, GOHM=1000000000, hOHM=100, k=1000, K=1000, Kohm=1000, kOhm=1000, kohm=1000, Kohm=1000, KOHM=1000, kOHM=1000, M=1000000, MEG=1000000, mohm=0.001, mOHM=0.001, mOhm=0.001, MOHM=1000000, ohm=1, Ohm=1, OHM=1, R=1"},
    {L"Cap", L"\u00b5F=1, F=1000000, mF=1000, NF=0.001, nF=0.001, PF=0.000001, pF=0.000001, uF=1, uf=1, UF=1"},
    {L"Cap1", L"\u00b5F=1000000, mF=1000000000, nF=1000, NF=1000, pF=1, PF=1, uF=1000000, UF=1000000"},
    {L"H2uH", L"\u00b5F=1, H=1000000, MH=1000, mH=1000, NH=0.001, nH=0.001, UH=1, uH=1"},
    {L"F", L"GHZ=1000, GHz=1000, Hz=0.000001, HZ=0.000001, KHZ=0.001, kHz=0.001, MHz=1, MHZ=1"},
    {L"FG", L"GHz=1, GHZ=1, HZ=0.000000001, Hz=0.000000001, KHZ=0.000001, kHz=0.000001, MHz=0.001, MHZ=0.001"},
    {L"F_GHZ", L"GHz=1, GHZ=1, HZ=0.000000001, Hz=0.000000001, KHZ=0.000001, kHz=0.000001, MHz=0.001, MHZ=0.001"},
    {L"AccessTime", L"mS=1, S=1000, uS=0.001"},
    {L"nS", L"\u00b5S=1000, mS=100000, nS=1, pS=0.001, uS=1000"},
    {L"SI", L"cS=10, dS=100, mhos=0.001, mmhos=1, mS=1, nS=1000000, S=0.001, uS=1000"},
    {L"T", L"\u00b0C=1, C=1, 'C=1"},
    {L"Ir", L"Ar=1, AR=1, mAr=0.001, mAR=0.001, uAR=0.000001, uAr=0.000001"},
    {L"dB", L"DB=1, db=1, dB=1"},
    {L"ResZero", L"ZERO=0.05, zero=0.05"},
    {L"T_CAPAdd", L"BX=125, C0G=125, COG=125, NP0=125, NPO=125, X5=85, X6=105, X7=125, X8=150, X9=200, Y5=85, Z5=85"},
    {L"CASE_RES_W", L"01005=0.031, 0201=0.005, 0402=0.063, 0603=0.1, 0805=0.125, 1005=0.063, 1206=0.25, 1210=0.33, 1218=1, 1608=0.1, 2010=0.5, 2012=0.125, 2512=1, 3216=0.25, 3225=0.33, 3246=1, 5025=0.5, 6332=1"},
    {L"CASE_RES_V", L"01005=15, 0201=25, 0402=50, 0525=30, 0603=75, 0805=150, 1005=50, 1206=200, 1210=200, 1218=200, 1608=75, 2010=400, 2012=150, 2512=500, 3216=200, 3225=200, 3246=200, 5025=400, 6332=500"},
    {L"AWG", L"10AWG=16.5, 11AWG=13.5, 12AWG=11.5, 13AWG=10.5, 14AWG=8.5, 15AWG=7, 16AWG=6.5, 17AWG=5.5, 18AWG=5, 19AWG=4.2, 20AWG=3.7, 21AWG=3, 22AWG=2.5, 23AWG=2.2, 24AWG=2, 25AWG=1.7, 26AWG=1.4, 27AWG=1.2, 28AWG=1, 29AWG=0.85, 30AWG=0.7"},
    {L"AWG2", L"12 AWG=1, 16 AWG=2, 18 AWG=3, 20 AWG=4, 22 AWG=5, 24 AWG=6, 28 AWG=7, 30 AWG=8, 32 AWG=9"},
    {L"CSC", L"DEFAULT=4, GOLD=1, SILVER=2, TIN=3"},
    {L"Hermeticity", L"DEFAULT=2, Herm=1, Hermetic=1, Moulded=3, Non-hermetic=2"},
    {L"Moulding", L"DEFAULT=4, Epoxy=4, Hermetic=1, Polyurethane=3, Silicone=2"},
    {L"FORM", L"3PDT=7, 3PST=4, 4PDT=8, 4PST=5, 6PDT=9, DPDT=6, DPST=2, SPDT=3, SPST=1"},
    {L"TECH_Amp", L"BIP=1, CMOS=2, MOS=2, NPN=1, PNP=1"},
    {L"LIST_100360", L"100=1, 100000000=2"},
    {L"List_231710", L"12=2, 48=3, 5=1"},
    {L"Vcb", L"VCB=1, Vcb=1"},
    {L"I_SRG", L"ASRG=1, Asrg=1"},
    {L"Ib", L"Ab=1, AB=1"},
    {L"Ic", L"AC=1, Ac=1"},
    {L"Rja", L"RJA=1, Rja=1"},
    {L"Pw_rip", L"WRIP=1, Wrip=1"},
    {L"Pinp_max", L"Winp=1, WINP=1"},
    {L"Pin-Gnd", L"GND=1, Gnd=1, gnd=1"},
    {L"PINs", L"Ball=1, -Ball=1, P=1, -P=1, PIN=1, -PIN=1, PINS=1, pins=1, -PINS=1, POS=1, S=1, -S=1"},
};

// Rows that a list must hold among others.
const std::pair<const wchar_t*, const wchar_t*> fixedRows[] = {
    {L"BIT", L"Bits=1, Bytes=8, gigabit=1073741824, gigabytes=8589934592, kBITs=1024, kilobyte=8192, MBITs=1048576, Mbytes=8388608, terabits=1099511627776, terabyte=8796093022208"},
    {L"KBIT", L"gigabits=1000000, gigabyte=8000000, kBITs=1, kilobytes=8, MBIT=1000, Mbyte=8000, terabit=1000000000, terabytes=8000000000"},
    {L"MBIT", L"gigabit=1000, gigabytes=8000, Mbit=1, MBITs=1, Mbytes=8, terabit=1000000, terabyte=8000000"},
    {L"FR25", L"FR@100'C=0.24, FR@25\u00b0C=1, FR@40C=0.712, FR@55'C=0.523, FR@70C=0.395, FR@85\u00b0C=0.305"},
    {L"FR100", L"FR@100C=1, FR@25'C=4.158, FR@40\u00b0C=2.96, FR@55C=2.17, FR@70'C=1.64, FR@85C=1.27"},
    {L"CASE_IC1", L"BGA=6, CBGA=5, CDIP=17, CERDIP=17"},
    {L"CASE_IC2", L"BGA=4, CBGA=3, CDIP=1"},
    {L"CASE_IC13", L"BGA WLP <0.5 mm=1, BGA WLP 0.5 mm=2, CBGA=3, CDIP=4"},
    {L"CASE_SEM1", L"DEFAULT=5, DO-13=16, DO-35=14"},
    {L"TECH_IC_1", L"ALSTTL=9, ASTTL=8, BIMOS=14, BiMOS=14"},
    {L"PROC", L"CA=1, CB=2, CC=4, CCR=3"},
};

// Group and last type; the types of a group run from 1.
const std::pair<int, int> stressGroups[] = {
    {1, 16}, {2, 9}, {3, 1}, {4, 1}, {5, 1}, {6, 5}, {7, 5}, {8, 6}, {9, 8}, {10, 35}, {11, 38},
    {12, 3}, {13, 6}, {14, 2}, {15, 18}, {16, 1}, {17, 2}, {18, 1}, {19, 8}, {20, 5}, {21, 3}, {24, 2},
};
const std::pair<int, int> analysesGroups[] = {
    {1, 19}, {2, 13}, {4, 1}, {5, 2}, {6, 1}, {7, 1}, {8, 7}, {9, 2}, {10, 1}, {11, 1}, {12, 1}, {13, 1},
    {14, 1}, {15, 1}, {16, 2}, {17, 2}, {18, 1}, {19, 1}, {20, 1}, {21, 1}, {22, 2}, {23, 2}, {24, 4},
    {25, 3}, {26, 3}, {27, 1}, {28, 1}, {30, 2}, {31, 1}, {32, 1}, {35, 1}, {36, 2}, {38, 4}, {39, 1},
};
// How many columns a group has; a rule behind them would fill nothing.
const std::map<int, size_t> stressColumns = {
    {1, 10}, {2, 13}, {3, 10}, {4, 10}, {5, 10}, {6, 10}, {7, 12}, {8, 12}, {9, 9}, {10, 5}, {11, 5}, {12, 5},
    {13, 6}, {14, 4}, {15, 5}, {16, 3}, {17, 1}, {18, 0}, {19, 6}, {20, 4}, {21, 3}, {24, 3},
};
const std::map<int, size_t> analysesColumns = {
    {4, 16}, {9, 24}, {10, 7}, {11, 7}, {12, 5}, {13, 4}, {14, 11}, {15, 11}, {16, 12}, {17, 12}, {18, 4}, {19, 9},
    {20, 0}, {21, 3}, {22, 5}, {23, 6}, {24, 12}, {25, 12}, {26, 8}, {27, 2}, {28, 5}, {30, 4}, {31, 3}, {32, 6},
    {35, 0}, {38, 6}, {39, 2},
};

const wchar_t* const pw = L"FUNC3{[FUNC1{[W,mW][1,0.001]}, DEFAULT],[FUNC1{[W,mW][1,0.001]},FUNC_PW{[25][125]}]}";
const wchar_t* const rja = L"FUNC3{[FUNC1{[#Rja]}, DEFAULT],[FUNC1{[#Rja]},FUNC_TETHA{[Rja]}]}";
const wchar_t* const rjc = L"FUNC3{[FUNC1{[#Rjc]}, DEFAULT],[FUNC1{[#Rjc]},FUNC_TETHA{[Rjc]}]}";
const wchar_t* const tj = L"FUNC_MAX{[X]},FUNC1{[#T]},FUNC4{[125]}";
const wchar_t* const volt = L"FUNC1{[#V]},FUNC8{[V]}";
const wchar_t* const caseIc = L"FUNC3{[#CASE_IC1]}";
const wchar_t* const caseSem = L"FUNC3{[#CASE_SEM1]}";
const wchar_t* const pinCount = L"FUNC_PIN{[CASE]}";
const wchar_t* const amps = L"FUNC1{[#I]}";
const wchar_t* const temp = L"FUNC1{[#T]}";
const wchar_t* const capTemp = L"FUNC1{[#T]},FUNC3{[#T_CAPAdd]}";
const wchar_t* const surge = L"FUNC1{[#I_SRG]}";
const wchar_t* const na = L"FUNC4{[-2]}";
const wchar_t* const resPower = L"FUNC1{[#Pw]},FUNC3{[#CASE_RES_W]}";
const wchar_t* const resVolt = L"FUNC1{[#V]},FUNC3{[#CASE_RES_V]},FUNC2{[LPar1,LPar4]}";
const wchar_t* const resOhm = L"FUNC1{[#Res]},FUNC3{[#ResZero]},FUNC8{[R]}";
const wchar_t* const tjOpto = L"FUNC_MAX{[X]},FUNC1{[#T]},FUNC4{[90]}";

struct FixedRules {
    int family, group, firstType, lastType;
    ParamRules rules;
};
const FixedRules fixedRules[] = {
    {14, 1, 1, 16, {caseIc, pinCount, volt, amps, pw, rja, rjc, tj, L"FUNC1{[#F]}", L"FUNC1{[#Vrec_max]}"}},
    {14, 2, 1, 1, {caseIc, pinCount, volt, amps, L"FUNC1{[#Vinp_max]}", pw, rja, rjc, tj, L"FUNC1{[#Vrec_max]}", L"", L"FUNC1{[#F]}", L"FUNC1{[#Iinp_max]}"}},
    {14, 3, 1, 1, {pw, L"FUNC4{[25]}", L"FUNC4{[1]}", tj, amps, volt, caseSem, rja, rjc, surge}},
    {14, 4, 1, 1, {pw, L"FUNC4{[25]}", L"FUNC4{[1]}", tj, amps, volt, caseSem, rja, rjc, surge}},
    {14, 9, 1, 4, {pw, amps, tjOpto, caseSem, rja, rjc, volt}},
    {14, 9, 7, 7, {pw, amps, tjOpto, caseSem, rja, rjc, volt}},
    {14, 10, 1, 1, {resPower, resVolt, temp, resOhm}},
    {14, 10, 16, 16, {resPower, resVolt, temp, resOhm, amps}},
    {14, 11, 1, 1, {volt, capTemp}},
    {14, 11, 38, 38, {volt, capTemp, L"FUNC1{[#Vr]}", surge, L"FUNC1{[#PROC1]}"}},
    {14, 12, 1, 1, {L"FUNC1{[V][1]}", surge, capTemp, L"FUNC1{[#Pw_rip]}", L"FUNC1{[#Vr]}"}},
    {14, 19, 1, 1, {L"FUNC1{[#AWG1]}", volt, L"FUNC1{[#I]},FUNC3{[#AWG]}", temp, L"", L"FUNC1{[#Vopr_max]}"}},
    {20, 1, 1, 1, {L"<num value>", L"{Pin1#24}", L"{Pin2#24}"}},
    {20, 2, 1, 1, {L"<Voltage>", L"<Leakage>", L"{Pin1#24}", L"{Pin2#24}", L"{Num Value,1000000#13}", L"{ESR,1#13}"}},
    {20, 10, 1, 1, {L"FUNC1{[#Von]}", L"FUNC1{[#Ion]}", L"FUNC_SUBCOMP{[#Pin-A]}", L"FUNC_SUBCOMP{[#Pin-C]}", L"FUNC_SUBCOMP{[#Pin-G]}", L"FUNC1{[#Vgt]}", L"FUNC1{[#Igt]}"}},
    {20, 14, 1, 1, {L"FUNC1{[#hfe]}", L"FUNC1{[#Vbe_sat]}", L"FUNC1{[#Vce_sat]}", L"FUNC_SUBCOMP{[#Pin-Collec]}", L"FUNC_SUBCOMP{[#Pin-Emit]}", L"FUNC_SUBCOMP{[#Pin-Base]}", L"FUNC1{[#Ic]}", L"FUNC4{[0.25]}", L"FUNC4{[-1]}", L"FUNC1{[#Cbe]}", L"FUNC1{[#Cbc]}"}},
    {20, 25, 2, 2, {na, na, na, na, na, na, na, L"FUNC4{[1]}", na, L"FUNC4{[1]}", na, na}},
    {20, 26, 3, 3, {L"FUNC_SUBCOMP{[#Pin-Inp]}", L"FUNC_SUBCOMP{[#Pin-Out]}", L"FUNC_SUBCOMP{[#Pin-Gnd]}", L"", L"FUNC1{[#Res]}", L"FUNC1{[#dB]}", L"FUNC3{[LowPass,HighPass,BandPass,BandStop,DEFAULT][1,2,3,4,3]}", L"FUNC_SUBCOMP{[#F]}"}},
    {20, 32, 1, 1, {L"FUNC_IF{[FUNC1{[#Rcoil]},FUNC4{[1]}][>][FUNC1{[#Rcoil]},FUNC4{[-1]}]}", L"FUNC_IF{[FUNC1{[#Res]},FUNC4{[1]}][<][FUNC1{[#Res]},FUNC4{[-1]}]}", L"FUNC_SUBCOMP{[#Pin-Coil1]}", L"FUNC_SUBCOMP{[#Pin-Coil2]}", L"FUNC_SUBCOMP{[#Pin1]}", L"FUNC_SUBCOMP{[#Pin2]}"}},
};
// clang-format on

std::map<RowKey, ParamRules> storedRules() {
    std::map<RowKey, ParamRules> stored;
    for (const ParamRuleRow& row : paramRuleRows)
        stored[{row.family, row.group, row.type}] = row.rules;
    return stored;
}

TEST(UnitRows, EveryKeyHasItsCountAndStandsTogether) {
    std::map<std::wstring, size_t> expected(std::begin(keyCounts), std::end(keyCounts));
    std::map<std::wstring, size_t> found;
    size_t runs = 0;
    std::wstring_view previous;
    for (const UnitRow& row : unitTableRows) {
        ++found[std::wstring(row.key)];
        runs += row.key != previous ? 1U : 0U;
        previous = row.key;
        EXPECT_FALSE(row.name.empty());
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(runs, 206U);
}

TEST(UnitRows, FixedListsAndRows) {
    const auto lists = unitLists();
    for (const auto& [key, text] : fixedLists)
        EXPECT_EQ(lists.at(key), parsePairs(text)) << narrow(key);
    for (const auto& [key, text] : fixedRows)
        EXPECT_THAT(lists.at(key), testing::IsSupersetOf(parsePairs(text))) << narrow(key);
    EXPECT_EQ(lists.at(L"CASE_IC13")[1].first, L"BGA WLP 0.5 mm");
}

TEST(UnitRows, ValuesAreNumbersAndNamesAreUnique) {
    std::vector<std::wstring> repeated;
    std::set<std::pair<std::wstring_view, std::wstring_view>> seen;
    for (const UnitRow& row : unitTableRows) {
        const std::wstring value(row.value);
        wchar_t* end = nullptr;
        EXPECT_GT(std::wcstod(value.c_str(), &end), 0) << narrow(std::wstring(row.key));
        EXPECT_EQ(end, value.c_str() + value.size()) << narrow(value);
        if (!seen.insert({row.key, row.name}).second)
            repeated.emplace_back(row.name);
    }
    EXPECT_EQ(repeated, std::vector<std::wstring>{L"Kohm"});
}

// The first keyword found wins, so a short one must not stand before a longer one that holds it.
TEST(UnitRows, NoPackageHidesALongerName) {
    for (const auto& [key, list] : unitLists()) {
        if (key.rfind(L"CASE_", 0) != 0 && key != L"PROC" && key != L"TECH_IC_1")
            continue;
        for (size_t i = 0; i < list.size(); ++i)
            for (size_t j = i + 1; j < list.size(); ++j)
                EXPECT_EQ(list[j].first.find(list[i].first), std::wstring::npos)
                    << narrow(key) << ": " << narrow(list[i].first);
    }
}

// Codes of the two live package lists are positions in vocabularies of 19 and 16 names.
TEST(UnitRows, PackageCodesStayInsideTheirVocabulary) {
    const auto lists = unitLists();
    for (const auto& [key, last] : {std::pair(L"CASE_IC1", 19L), std::pair(L"CASE_SEM1", 16L)})
        for (const auto& [name, value] : lists.at(key))
            EXPECT_LE(std::wcstol(value.c_str(), nullptr, 10), last) << narrow(name);
}

TEST(RuleRows, EveryGroupAndTypeHasItsRow) {
    std::vector<RowKey> expected, found;
    for (const auto& [group, last] : stressGroups)
        for (int type = 1; type <= last; ++type)
            expected.emplace_back(14, group, type);
    for (const auto& [group, last] : analysesGroups)
        for (int type = 1; type <= last; ++type)
            expected.emplace_back(20, group, type);
    expected.emplace_back(20, 1, 1);
    for (const ParamRuleRow& row : paramRuleRows)
        found.emplace_back(row.family, row.group, row.type);
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(expected));
    EXPECT_EQ(storedRules().size(), 264U);
}

TEST(RuleRows, FixedRowsStand) {
    const auto stored = storedRules();
    for (const FixedRules& fixed : fixedRules)
        for (int type = fixed.firstType; type <= fixed.lastType; ++type)
            EXPECT_EQ(stored.at({fixed.family, fixed.group, type}), fixed.rules)
                << fixed.family << '/' << fixed.group << '/' << type;
}

TEST(RuleRows, OnlyTheseRowsAreEmpty) {
    std::set<RowKey> empty;
    for (const auto& [key, rules] : storedRules())
        if (rules == ParamRules{})
            empty.insert(key);
    const std::set<RowKey> expected = {{14, 18, 1}, {20, 4, 1},  {20, 8, 4},  {20, 9, 1},
                                       {20, 9, 2},  {20, 20, 1}, {20, 35, 1}, {20, 39, 1}};
    EXPECT_EQ(empty, expected);
}

TEST(RuleRows, EveryRuleIsBalancedUsesKnownKeysAndHasAColumn) {
    const auto lists = unitLists();
    const std::wregex keyForm(L"\\[#([^\\]]*)\\]");
    for (const auto& [key, rules] : storedRules()) {
        const auto [family, group, type] = key;
        const auto& columns = family == 14 ? stressColumns : analysesColumns;
        const auto limit = columns.find(group);
        for (size_t cell = 0; cell < rules.size(); ++cell) {
            const std::wstring rule(rules[cell]);
            const std::string where = std::to_string(family) + '/' + std::to_string(group) + '/' +
                                      std::to_string(type) + " LPar" + std::to_string(cell + 1);
            if (!rule.empty() && limit != columns.end()) {
                EXPECT_LT(cell, limit->second) << where;
            }
            for (const auto& [open, close] : {std::pair(L'[', L']'), std::pair(L'{', L'}')})
                EXPECT_EQ(std::count(rule.begin(), rule.end(), open),
                          std::count(rule.begin(), rule.end(), close))
                    << where;
            for (std::wsregex_iterator hit(rule.begin(), rule.end(), keyForm), end; hit != end;
                 ++hit)
                EXPECT_TRUE(lists.count((*hit)[1].str()) == 1) << where << ' ' << narrow(rule);
        }
    }
}

// A term whose names and factors differ in number would be dropped in silence.
TEST(RuleRows, LiteralListsArePairedAndNumeric) {
    const std::wregex pairForm(L"FUNC(1|3|_SUBCOMP)\\{\\[([^#\\[\\]]*)\\]\\[([^\\[\\]]*)\\]\\}");
    int pairs = 0;
    for (const auto& [key, rules] : storedRules())
        for (const std::wstring_view view : rules) {
            const std::wstring rule(view);
            for (std::wsregex_iterator hit(rule.begin(), rule.end(), pairForm), end; hit != end;
                 ++hit, ++pairs) {
                const std::wstring names = (*hit)[2], factors = (*hit)[3];
                EXPECT_EQ(std::count(names.begin(), names.end(), L','),
                          std::count(factors.begin(), factors.end(), L','))
                    << narrow(rule);
                EXPECT_EQ(factors.find_first_not_of(L"0123456789.,"), std::wstring::npos);
            }
        }
    EXPECT_GT(pairs, 50);
}

} // namespace
} // namespace partwright
