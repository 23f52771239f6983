#include "ui_pro/controls/chart/CurvePainter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float fillAlphaTop = 0.22f;
constexpr float fillAlphaBottom = 0.02f;
constexpr float nearlyStraight = 0.97f; // cosine of the turn up to which one point makes a joint

/** A piece of the curve: where it starts, and half the stroke's width across it. */
struct Piece
{
    juce::Point<float> start;
    juce::Point<float> direction;
    juce::Point<float> across;
};

std::vector<Piece> makePieces (CurvePoints points, float width)
{
    std::vector<Piece> pieces;
    pieces.reserve (points.size());

    for (std::size_t i = 1; i < points.size(); ++i)
    {
        const auto step = points[i] - points[i - 1];
        const auto length = std::hypot (step.x, step.y);

        if (length <= 0.0f)
            continue;

        const auto direction = step / length;
        pieces.push_back (
            { points[i - 1], direction, juce::Point<float> (-direction.y, direction.x) * (0.5f * width) });
    }

    return pieces;
}

/** One side of the joint between two pieces. */
void addJoint (juce::Path& path, const Piece& before, const Piece& after, juce::Point<float> joint, float side)
{
    if (before.direction.getDotProduct (after.direction) > nearlyStraight)
    {
        path.lineTo (joint + (before.across + after.across) * (0.5f * side));
        return;
    }

    path.lineTo (joint + before.across * side);
    path.lineTo (joint + after.across * side);
}

} // namespace

void fillCurve (juce::Graphics& g, CurvePoints points, float baseline, juce::Rectangle<float> area, juce::Colour colour)
{
    if (points.size() < 2)
        return;

    juce::Path path;
    path.preallocateSpace (static_cast<int> (3 * (points.size() + 3)));
    path.startNewSubPath (points.front().withY (baseline));

    for (const auto& point : points)
        path.lineTo (point);

    path.lineTo (points.back().withY (baseline));
    path.closeSubPath();

    g.setGradientFill (juce::ColourGradient::vertical (colour.withMultipliedAlpha (fillAlphaTop), area.getY(),
        colour.withMultipliedAlpha (fillAlphaBottom), area.getBottom()));
    g.fillPath (path);
}

std::vector<juce::Point<float>> thinCurve (CurvePoints points, float tolerance)
{
    constexpr std::size_t longestPiece = 16; // points, so that the search stays short
    std::vector<juce::Point<float>> kept (points.begin(), points.begin() + (points.empty() ? 0 : 1));

    for (std::size_t start = 0, end = 1; end < points.size(); ++end)
    {
        const auto straightTo = [&] (std::size_t last)
        {
            const auto slope = (points[last].y - points[start].y) / (points[last].x - points[start].x);
            return std::all_of (points.begin() + static_cast<std::ptrdiff_t> (start),
                points.begin() + static_cast<std::ptrdiff_t> (last),
                [&] (juce::Point<float> point)
                { return std::abs (points[start].y + slope * (point.x - points[start].x) - point.y) <= tolerance; });
        };

        if (end + 1 == points.size() || end - start == longestPiece || ! straightTo (end + 1))
        {
            kept.push_back (points[end]);
            start = end;
        }
    }

    return kept;
}

juce::Path outlineCurve (CurvePoints points, float width)
{
    const auto pieces = makePieces (points, width);

    if (pieces.empty())
        return {};

    // The outline: along one side, and back along the other.
    juce::Path path;
    path.preallocateSpace (static_cast<int> (12 * (pieces.size() + 1)));
    path.startNewSubPath (pieces.front().start + pieces.front().across);

    for (std::size_t i = 1; i < pieces.size(); ++i)
        addJoint (path, pieces[i - 1], pieces[i], pieces[i].start, 1.0f);

    path.lineTo (points.back() + pieces.back().across);
    path.lineTo (points.back() - pieces.back().across);

    for (auto i = pieces.size() - 1; i > 0; --i)
        addJoint (path, pieces[i], pieces[i - 1], pieces[i].start, -1.0f);

    path.lineTo (pieces.front().start - pieces.front().across);
    path.closeSubPath();
    return path;
}

void strokeCurve (juce::Graphics& g, CurvePoints points, float width, juce::Colour colour)
{
    g.setColour (colour);
    g.fillPath (outlineCurve (points, width));
}

} // namespace quillon::ui_pro::controls
