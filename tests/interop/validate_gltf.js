// Holds a .gltf or .glb file against the format's own validator: no error, no warning.
//     node validate_gltf.js FILE
const fs = require('fs');
const validator = require('gltf-validator');

validator.validateBytes(new Uint8Array(fs.readFileSync(process.argv[2]))).then((report) => {
    const { numErrors, numWarnings, numInfos } = report.issues;
    console.log(`interop: ${process.argv[2]}: ${numErrors} errors, ${numWarnings} warnings, ${numInfos} notes`);
    for (const message of report.issues.messages) console.log(`interop:   ${message.pointer}: ${message.message}`);
    process.exit(numErrors + numWarnings > 0 ? 1 : 0);
}, (error) => {
    console.error(`interop: ${error}`);
    process.exit(1);
});
