#include "ui_pro/layout/Logo.h"

namespace quillon::ui_pro::layout
{
namespace
{

constexpr const char* logoSvg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 500 500">
  <rect x="0" y="0" width="500" height="500" fill="#000000" fill-opacity="0"/>
  <path fill="#F67F2D" d="M36 236 C146 252 292 204 464 64 C418 222 288 320 132 318 C90 317 56 284 36 236 Z"/>
  <path fill="#D9E0E6" d="M112 342 C218 354 324 318 428 218 C390 338 298 402 190 398 C158 396 130 376 112 342 Z"/>
  <path fill="#68727D" d="M186 420 C262 428 332 402 398 336 C372 416 312 458 238 454 C216 452 198 440 186 420 Z"/>
</svg>)";

} // namespace

std::unique_ptr<juce::Drawable> makeLogo()
{
    const auto document = juce::XmlDocument::parse (juce::String (logoSvg));
    jassert (document != nullptr);
    return juce::Drawable::createFromSVG (*document);
}

} // namespace quillon::ui_pro::layout
