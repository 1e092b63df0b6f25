#include "analysis/Spectrum.h"
#include "analysis/spectrum/Fourier.h"
#include "analysis/spectrum/TransferFunction.h"

#include <cmath>

namespace ecg {
namespace {

// Magnitudes on the page, where a millimetre of a panel is a part of 20 uV/Hz: each layout has its own scale.
constexpr double twelveLeadScale = 1.185;
constexpr double doubleLeadScale = 3.037 / 2;

void SetMagnitudes(std::span<const Bin> bins, double scale, BinValues& magnitudes)
{
    const double length = 2 * static_cast<double>(bins.size());
    magnitudes.fill(0);
    for (std::size_t k = 0; k < bins.size(); ++k)
        magnitudes[k] = static_cast<float>(std::sqrt(bins[k].Power()) * scale / length);
}

}  // namespace

void ComputeSpectrum(const LeadBlock& block, int length, SpectrumLayout layout, SpectrumResult& result)
{
    if (length < ShortestSpectrum || length > LongestSpectrum)
        return;
    const auto transform = [&](std::size_t lead) {
        return Transform(block.Row(lead).first(static_cast<std::size_t>(length)));
    };
    result.Length = length;
    if (layout == SpectrumLayout::TwelveLeads) {
        for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead)
            SetMagnitudes(transform(lead), twelveLeadScale, result.Spectrum[lead]);
        return;
    }
    const auto [input, output] = result.DftLeads;
    const auto inputBins = transform(input);
    const auto outputBins = transform(output);
    SetMagnitudes(inputBins, doubleLeadScale, result.Spectrum[input]);
    SetMagnitudes(outputBins, doubleLeadScale, result.Spectrum[output]);
    result.Spectrum[input][0] = 0;
    result.Spectrum[output][0] = 0;
    const auto transfer = TransferFunction(inputBins, outputBins);
    SetPhaseShift(transfer, result.PhaseShift);
    SetImpulseResponse(transfer, result.ImpulseResp);
}

bool AnalyseSpectrum(AboutFile& file, SpectrumLayout layout, int heartRate, SpectrumResult& result)
{
    const int length = ReadSpectrumSamples(file);
    if (length < ShortestSpectrum)
        return false;
    ComputeSpectrum(file.EcgBlock, length, layout, result);
    if (layout == SpectrumLayout::DoubleLead) {
        ClassifySpectrum(SpectrumGroup::Input, heartRate, result);
        ClassifySpectrum(SpectrumGroup::Output, heartRate, result);
        ClassifyTransfer(result);
    }
    return true;
}

}  // namespace ecg
