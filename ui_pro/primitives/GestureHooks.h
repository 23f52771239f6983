#pragma once

#include <functional>

namespace quillon::ui_pro::primitives
{

/** What an owner has called right before each gesture of the user, and right after it. */
struct GestureHooks
{
    std::function<void()> start;
    std::function<void()> end;
};

} // namespace quillon::ui_pro::primitives
