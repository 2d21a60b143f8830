import QtQuick
import QtTest
import Tidewright

TestCase {
    name: "Pel"

    function linear(channel: real): real {
        return channel <= 0.04045 ? channel / 12.92 : Math.pow((channel + 0.055) / 1.055, 2.4);
    }

    function luminance(color: color): real {
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
    }

    function contrast(one: color, other: color): real {
        const [dark, light] = [luminance(one), luminance(other)].sort((a, b) => a - b);
        return (light + 0.05) / (dark + 0.05);
    }

    function test_textCanBeReadOnEveryGround() {
        for (const ground of ["canvas", "panel", "panelAlt", "line"])
            for (const text of ["ink", "inkMuted", "brand", "ok", "warn", "danger", "cyan"])
                verify(contrast(Pel[text], Pel[ground]) >= 4.5, text + " on " + ground);
    }

    function test_whatCanBeUsedStandsOutFromEveryGround() {
        for (const ground of ["canvas", "panel", "panelAlt"])
            verify(contrast(Pel.outline, Pel[ground]) >= 3, "outline on " + ground);
    }

    function test_textCanBeReadWhereItIsSelectedOrChosen() {
        for (const text of ["ink", "brand", "cyan"])
            verify(contrast(Pel[text], Pel.selection) >= 4.5, text);
    }

    function test_textCanBeReadOnFilledButtons() {
        verify(contrast(Pel.onBrand, Pel.brand) >= 4.5);
        verify(contrast(Pel.onBrand, Pel.danger) >= 4.5);
    }
}
