/** Hands a file to the user. */
export function download(name: string, bytes: BlobPart, type = 'application/octet-stream'): void {
    const address = URL.createObjectURL(new Blob([bytes], { type }));
    const link = document.createElement('a');
    link.href = address;
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(address), 60_000);
}

export const stem = (name: string): string => name.replace(/(\.transforms|\.camera_path)?\.[^.]*$/, '') || 'camera';
