/** A file of the repository, gzipped, in base64. */
declare module 'embedded:*' {
    const data: string;
    export default data;
}
declare module 'fft.js';
