#include "demo/TwelveLeads.h"

namespace ecg {
namespace {

constexpr Dipole leadI{0.632, -0.235, 0.059};
constexpr Dipole leadII{0.235, 1.066, -0.132};
constexpr std::array<Dipole, 6> chestLeads{{
    {-0.515, 0.157, -0.917},
    {0.044, 0.164, -1.387},
    {0.882, 0.098, -1.277},
    {1.213, 0.127, -0.601},
    {1.125, 0.127, -0.086},
    {0.831, 0.076, 0.230},
}};

double Project(const Dipole& dipole, const Dipole& lead)
{
    return dipole.X * lead.X + dipole.Y * lead.Y + dipole.Z * lead.Z;
}

}  // namespace

WilsonLeads WilsonFromFrank(const Dipole& dipole)
{
    WilsonLeads leads;
    leads.II = Project(dipole, leadII);
    leads.III = leads.II - Project(dipole, leadI);
    for (std::size_t i = 0; i < chestLeads.size(); ++i)
        leads.V[i] = Project(dipole, chestLeads[i]);
    return leads;
}

}  // namespace ecg
