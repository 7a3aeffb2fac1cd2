// Keeps the window library non-empty until the first window lands.
namespace rakeyard::ui {}
