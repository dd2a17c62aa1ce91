#pragma once

// Sizes in the study are twips; the screen counts pixels at 15 twips each.
namespace thermique::gui {

constexpr int TwipsParPixel = 15;

constexpr int pixels(int twips)
{
    return (twips + TwipsParPixel / 2) / TwipsParPixel;
}

constexpr int twips(int pixels)
{
    return pixels * TwipsParPixel;
}

} // namespace thermique::gui
