import QtQuick
import QtQuick.Layouts
import Tidewright

/// Where the companion app finds the gateway, and who has.
Card {
    id: root

    required property Settings settings
    required property GatewaySimulator simulator
    required property bool copied

    title: "Connectez votre iPhone"
    systemImage: "iphone.gen3.radiowaves.left.and.right"

    BodyText {
        objectName: "advice"
        Layout.fillWidth: true
        text: root.simulator.isRunning
              ? "Le réseau NMEA émet. Sur l'iPhone (même Wi-Fi que ce Mac), ouvrez PelorinConnect → Réglages → GPS & NMEA → Scanner. Ou saisissez l'adresse ci-dessous."
              : "Démarrez la simulation pour émettre le réseau NMEA. L'iPhone pourra alors le détecter et lire les données."
    }

    AddressBlock {
        Layout.fillWidth: true
        visible: root.simulator.isRunning
        settings: root.settings
        simulator: root.simulator
        copied: root.copied
        onCopiedChanged: root.copied = copied
    }
}
