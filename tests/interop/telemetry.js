// Prints the samples of a film or a payload of an action camera, as the cameras' users read them: {"GYRO": [[z, x, y], ...]}.
//     node telemetry.js FILE KEY...
const fs = require('fs');
const telemetry = require('gopro-telemetry');
const extract = require('gpmf-extract');

async function main(file, keys) {
    const bytes = fs.readFileSync(file);
    const data = file.endsWith('.raw') ? {rawData: bytes} : await extract(bytes);
    const samples = {};
    for (const key of keys) {
        const devices = Object.values(await telemetry(data, {stream: [key]}));
        samples[key] = devices[0].streams[key].samples.map((sample) => sample.value);
    }
    fs.writeSync(1, JSON.stringify(samples));
}

main(process.argv[2], process.argv.slice(3)).catch((error) => {
    console.error(`telemetry: ${error}`);
    process.exit(1);
});
